// The whole measurement log as a curve over time: where its samples stand, and what is seen of
// them.
#pragma once

#include "power/log/chart_table.h"
#include "power/log/envelope.h"
#include "power/log/sample_store.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace zps {

// What the curve reaches in a column of the picture, some pixels wide.
struct Band {
    double Place;  // of the column's left edge
    Bounds Reach;
    bool Continues;  // the band before hangs together with it
};

// A stretch of the curve: a line through its samples, or, where they are too many for that, bands.
struct Trace {
    std::vector<double> Places;
    std::array<std::vector<float>, ChartColumns> Values;  // NaN where the line breaks
    std::vector<Band> Bands;
    double BandWidth = 0;
};

// A place is counted in seconds. Each run counts from the place of its own start, a second behind
// the run before.
class RunCurve {
  public:
    struct Run {
        std::size_t First;  // its first sample
        double Offset;      // from the run's seconds to places
    };

    // `samples` outlives it.
    explicit RunCurve(const SampleStore& samples) : Samples(samples), Bound(samples) {}

    // The store has taken one sample more.
    void Append();
    // The store is empty.
    void Clear();

    std::size_t Count() const { return Samples.Count(); }
    // The place of the newest sample; 0 without any.
    double End() const { return Count() == 0 ? 0 : PlaceOf(Count() - 1); }
    const std::vector<Run>& Runs() const { return Parts; }
    // Where run `run` ends: the place of its last sample.
    double EndOf(std::size_t run) const;
    // The first run that is not wholly before `place`; the last one if all are.
    std::size_t RunAt(double place) const;

    // Of samples below Count().
    double PlaceOf(std::size_t index) const;
    ChartPoint PointAt(std::size_t index) const;
    // The sample that `point` shows; nothing where it is none of them.
    std::optional<std::size_t> IndexOf(const ChartPoint& point) const;
    // The first sample that is not before `place`, Count() if all are. Found soonest a little
    // behind `from`, where it is not before.
    std::size_t IndexAt(double place, std::size_t from = 0) const;
    // Nothing without samples.
    std::optional<std::size_t> Nearest(double place) const;

    Bounds BoundsOf(std::size_t first, std::size_t end) const { return Bound.Of(first, end); }
    // What is seen of the curve between two places: the samples there, and its line from them to
    // those beyond.
    Bounds ReachOf(double low, double high) const;
    // The first sample from `index` on that begins a run, or whose step is not that of the sample
    // before; Count() where there is none.
    std::size_t NextBeginning(std::size_t index) const;
    int StepOf(std::size_t index) const { return Samples.At(index).Step; }

    // Between two places, in so many columns, with the nearest samples on either side.
    Trace TraceOf(double low, double high, int columns) const;

    // Memory that it holds besides the store, in bytes.
    std::size_t Bytes() const {
        return Bound.Bytes() + Beginnings.capacity() * sizeof(Beginnings[0]);
    }

  private:
    // Blocks of samples; a bit of each tells whether a run or a step begins in it.
    static constexpr std::size_t BlockSize = 16;
    static constexpr std::size_t WordSize = 64;

    std::size_t RunOf(std::size_t index) const;
    bool BeginsAt(std::size_t index) const;
    bool Hangs(std::size_t index) const;
    Bounds OnLine(std::size_t index, double place) const;
    void AddSamples(Trace& trace, std::size_t first, std::size_t end) const;
    Band BandOf(double place, std::size_t first, std::size_t end) const;

    const SampleStore& Samples;
    Envelope Bound;
    std::vector<Run> Parts;
    std::vector<std::uint64_t> Beginnings;
};

}  // namespace zps
