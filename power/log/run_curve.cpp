#include "power/log/run_curve.h"

#include "power/log/range_sums.h"

#include <algorithm>
#include <bit>
#include <cmath>
#include <iterator>
#include <limits>
#include <utility>

namespace zps {

namespace {

constexpr double RunGap = 1;                                   // s
constexpr double LongestStep = RangeSums::LongestGap / 100.0;  // s that a line spans
constexpr float Gap = std::numeric_limits<float>::quiet_NaN();

double SecondsOf(const Sample& sample) {
    return sample.Hundredths / 100.0;
}

}  // namespace

void RunCurve::Append() {
    const std::size_t index = Count() - 1;
    const Sample sample = Samples.At(index);
    const std::uint32_t run = Samples.RunAt(index);
    if (run == Parts.size()) {
        // The first may be the rest of a run whose beginning has been deleted.
        const double begun = std::floor(SecondsOf(sample));
        Parts.push_back({index, index == 0 ? -begun : PlaceOf(index - 1) + RunGap});
    }
    Bound.Append(sample);
    const std::size_t block = index / BlockSize;
    if (block / WordSize == Beginnings.size()) Beginnings.push_back(0);
    if (BeginsAt(index)) Beginnings.back() |= std::uint64_t{1} << block % WordSize;
}

void RunCurve::Clear() {
    Bound.Clear();
    Parts = {};
    Beginnings = {};
}

std::size_t RunCurve::RunOf(std::size_t index) const {
    const auto next =
        std::upper_bound(Parts.begin(), Parts.end(), index,
                         [](std::size_t wanted, const Run& run) { return wanted < run.First; });
    return static_cast<std::size_t>(next - Parts.begin()) - 1;
}

double RunCurve::PlaceOf(std::size_t index) const {
    return SecondsOf(Samples.At(index)) + Parts[RunOf(index)].Offset;
}

double RunCurve::EndOf(std::size_t run) const {
    return PlaceOf((run + 1 < Parts.size() ? Parts[run + 1].First : Count()) - 1);
}

std::size_t RunCurve::RunAt(double place) const {
    const std::size_t index = IndexAt(place);
    return index == Count() ? Parts.size() - 1 : RunOf(index);
}

ChartPoint RunCurve::PointAt(std::size_t index) const {
    const Sample sample = Samples.At(index);
    return {{Reading{sample.Volts, sample.VoltDecimals}, Reading{sample.Amps, sample.CurrDecimals}},
            Samples.NumberAt(index),
            sample.Hundredths,
            Samples.RunAt(index)};
}

std::optional<std::size_t> RunCurve::IndexOf(const ChartPoint& point) const {
    if (point.Run >= Parts.size()) return std::nullopt;
    const std::size_t first = Parts[point.Run].First;
    const auto index = first + static_cast<std::size_t>(point.Number - Samples.NumberAt(first));
    if (index >= Count() || PointAt(index) != point) return std::nullopt;
    return index;
}

// In steps that grow, then by halves: columns of a picture ask one behind the other.
std::size_t RunCurve::IndexAt(double place, std::size_t from) const {
    std::size_t low = from;
    std::size_t step = 1;
    while (low + step < Count() && PlaceOf(low + step) < place) {
        low += step;
        step *= 2;
    }
    std::size_t high = std::min(low + step, Count());
    while (low < high) {
        const std::size_t middle = low + (high - low) / 2;
        if (PlaceOf(middle) < place)
            low = middle + 1;
        else
            high = middle;
    }
    return low;
}

std::optional<std::size_t> RunCurve::Nearest(double place) const {
    if (Count() == 0) return std::nullopt;
    const std::size_t next = std::min(IndexAt(place), Count() - 1);
    const bool before = next > 0 && place - PlaceOf(next - 1) < PlaceOf(next) - place;
    return before ? next - 1 : next;
}

bool RunCurve::BeginsAt(std::size_t index) const {
    return Parts[RunOf(index)].First == index ||
           Samples.At(index).Step != Samples.At(index - 1).Step;
}

std::size_t RunCurve::NextBeginning(std::size_t index) const {
    while (index < Count()) {
        const std::size_t block = index / BlockSize;
        const std::uint64_t ahead = Beginnings[block / WordSize] >> block % WordSize;
        if (ahead == 0) {
            index = (block / WordSize + 1) * WordSize * BlockSize;
            continue;
        }
        const auto skipped = static_cast<std::size_t>(std::countr_zero(ahead));
        if (skipped > 0) index = (block + skipped) * BlockSize;
        const std::size_t end = std::min((block + skipped + 1) * BlockSize, Count());
        for (; index < end; ++index) {
            if (BeginsAt(index)) return index;
        }
    }
    return Count();
}

// With the sample before: lines break between runs, and where no sample came for a while.
bool RunCurve::Hangs(std::size_t index) const {
    return Parts[RunOf(index)].First != index && PlaceOf(index) - PlaceOf(index - 1) <= LongestStep;
}

// Where the line from the sample before passes `place`, between the two.
Bounds RunCurve::OnLine(std::size_t index, double place) const {
    const double from = PlaceOf(index - 1);
    const auto share = static_cast<float>((place - from) / (PlaceOf(index) - from));
    const Sample before = Samples.At(index - 1);
    Sample here = Samples.At(index);
    here.Volts = std::lerp(before.Volts, here.Volts, share);
    here.Amps = std::lerp(before.Amps, here.Amps, share);
    return Bounds::Of(here);
}

Bounds RunCurve::ReachOf(double low, double high) const {
    const std::size_t first = IndexAt(low);
    const std::size_t end = IndexAt(high, first);
    Bounds reach = BoundsOf(first, end);
    for (const auto& [index, place] : {std::pair(first, low), {end, high}}) {
        if (index < Count() && Hangs(index)) reach.Add(OnLine(index, place));
    }
    return reach;
}

void RunCurve::AddSamples(Trace& trace, std::size_t first, std::size_t end) const {
    for (; first < end; ++first) {
        const double place = PlaceOf(first);
        if (!trace.Places.empty() && !Hangs(first)) {
            trace.Places.push_back((trace.Places.back() + place) / 2);
            for (auto& values : trace.Values) values.push_back(Gap);
        }
        const Sample sample = Samples.At(first);
        trace.Places.push_back(place);
        trace.Values[0].push_back(sample.Volts);
        trace.Values[1].push_back(sample.Amps);
    }
}

// From the last sample of the band before on, if it hangs together with that.
Band RunCurve::BandOf(double place, std::size_t first, std::size_t end) const {
    const bool hangs = first > 0 && Hangs(first);
    return {place, BoundsOf(hangs ? first - 1 : first, end), hangs};
}

Trace RunCurve::TraceOf(double low, double high, int columns) const {
    Trace trace;
    if (Count() == 0 || !(low < high) || columns < 1) return trace;
    std::size_t first = IndexAt(low);
    const std::size_t end = std::min(IndexAt(high, first) + 1, Count());
    if (end - first <= static_cast<std::size_t>(columns)) {
        AddSamples(trace, first > 0 ? first - 1 : 0, end);
        return trace;
    }
    const double width = trace.BandWidth = (high - low) / columns;
    for (int column = 0; column < columns; ++column) {
        const double place = low + column * width;
        const std::size_t next = std::min(IndexAt(place + width, first), end);
        if (next > first) trace.Bands.push_back(BandOf(place, first, next));
        first = next;
    }
    return trace;
}

}  // namespace zps
