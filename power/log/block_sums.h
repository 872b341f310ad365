// The sums of any range of the log's samples, at once also where it is ten million long.
#pragma once

#include "power/log/range_sums.h"

#include <cstddef>
#include <vector>

namespace zps {

// Keeps the sums of each block of samples beside the store: a seventh of a byte a sample. A range
// then costs its whole blocks and the samples of the two that it cuts. Window thread only.
class BlockSums {
  public:
    // `samples` outlives this and is empty.
    explicit BlockSums(const SampleStore& samples) : Samples(samples) {}

    // The store has a sample more at its end.
    void Appended();
    // The store has been emptied.
    void Clear() { Blocks = {}; }

    // The sums of the samples at `first` to `last`, both among them and counted from 0 as the store
    // does. Samples beyond the end are none; neither are those of a range that ends before it
    // begins.
    RangeSums Over(std::size_t first, std::size_t last) const;

    // Memory that it holds besides the store, in bytes.
    std::size_t Bytes() const { return Blocks.capacity() * sizeof(RangeSums); }

  private:
    static constexpr std::size_t BlockSize = 1024;

    RangeSums OfOne(std::size_t index) const;

    const SampleStore& Samples;
    std::vector<RangeSums> Blocks;
};

}  // namespace zps
