// The least and the greatest of the log's values over any stretch of it, at once.
#pragma once

#include "power/log/chart_table.h"
#include "power/log/sample_store.h"

#include <array>
#include <cstddef>
#include <deque>
#include <limits>

namespace zps {

// Of voltage and current. Those of no sample are the other way round.
struct Bounds {
    std::array<float, ChartColumns> Least;
    std::array<float, ChartColumns> Most;

    static constexpr float Far = std::numeric_limits<float>::infinity();
    static constexpr Bounds None() { return {{Far, Far}, {-Far, -Far}}; }
    static Bounds Of(const Sample& sample) {
        return {{sample.Volts, sample.Amps}, {sample.Volts, sample.Amps}};
    }
    void Add(const Bounds& other);
    bool operator==(const Bounds&) const = default;
};

// Keeps the bounds of 16 samples, of 16 times 16 and so on: 1.1 bytes a sample. What it tells of
// any stretch, however long, it puts together from some tens of those.
class Envelope {
  public:
    // `samples` outlives it.
    explicit Envelope(const SampleStore& samples) : Samples(samples) {}

    // To be called for each sample, in their order.
    void Append(const Sample& sample);
    void Clear();

    // Of the samples from `first` on, before `end`, which is at most the count of those appended.
    Bounds Of(std::size_t first, std::size_t end) const;

    // Memory that it holds, in bytes, but for what the blocks' container needs for itself.
    std::size_t Bytes() const;

    static constexpr std::size_t Factor = 16;

  private:
    // The coarsest takes a million samples a block.
    static constexpr std::size_t Levels = 5;

    const SampleStore& Samples;
    std::array<std::deque<Bounds>, Levels> Blocks;  // the last ones may be filling yet
    std::size_t Count = 0;
};

}  // namespace zps
