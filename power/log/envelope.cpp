#include "power/log/envelope.h"

#include <algorithm>

namespace zps {

void Bounds::Add(const Bounds& other) {
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        Least[column] = std::min(Least[column], other.Least[column]);
        Most[column] = std::max(Most[column], other.Most[column]);
    }
}

void Envelope::Append(const Sample& sample) {
    const Bounds own = Bounds::Of(sample);
    std::size_t size = 1;
    for (auto& blocks : Blocks) {
        size *= Factor;
        if (Count % size == 0)
            blocks.push_back(own);
        else
            blocks.back().Add(own);
    }
    ++Count;
}

void Envelope::Clear() {
    for (auto& blocks : Blocks) std::deque<Bounds>().swap(blocks);
    Count = 0;
}

// Step by step the largest block that begins here and does not reach beyond the end.
Bounds Envelope::Of(std::size_t first, std::size_t end) const {
    Bounds all = Bounds::None();
    while (first < end) {
        std::size_t size = 1;
        std::size_t level = 0;
        while (level < Levels && first % (size * Factor) == 0 && end - first >= size * Factor) {
            size *= Factor;
            ++level;
        }
        all.Add(level == 0 ? Bounds::Of(Samples.At(first)) : Blocks.at(level - 1)[first / size]);
        first += size;
    }
    return all;
}

std::size_t Envelope::Bytes() const {
    std::size_t count = 0;
    for (const auto& blocks : Blocks) count += blocks.size();
    return count * sizeof(Bounds);
}

}  // namespace zps
