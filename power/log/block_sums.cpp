#include "power/log/block_sums.h"

namespace zps {

void BlockSums::Appended() {
    const std::size_t index = Samples.Count() - 1;
    if (index % BlockSize == 0) Blocks.emplace_back();
    Blocks.back().Join(OfOne(index));
}

RangeSums BlockSums::Over(std::size_t first, std::size_t last) const {
    RangeSums sums;
    const std::size_t end = last < Samples.Count() ? last + 1 : Samples.Count();
    for (std::size_t index = first; index < end;) {
        const bool whole = index % BlockSize == 0 && index + BlockSize <= end;
        sums.Join(whole ? Blocks[index / BlockSize] : OfOne(index));
        index += whole ? BlockSize : 1;
    }
    return sums;
}

RangeSums BlockSums::OfOne(std::size_t index) const {
    return {Samples.At(index), Samples.RunAt(index)};
}

}  // namespace zps
