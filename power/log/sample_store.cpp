#include "power/log/sample_store.h"

#include <algorithm>

namespace zps {

void SampleStore::Append(const Sample& sample, std::int32_t number) {
    if (Stored == Chunks.size() * ChunkSize) {
        Chunks.push_back(std::make_unique_for_overwrite<Chunk>());
    }
    if (Stored == 0 || number != NumberAt(Stored - 1) + 1) Stretches.push_back({Stored, number});
    Chunk& chunk = *Chunks.back();
    const std::size_t place = Stored % ChunkSize;
    chunk.Volts[place] = sample.Volts;
    chunk.Amps[place] = sample.Amps;
    chunk.Hundredths[place] = sample.Hundredths;
    chunk.Step[place] = sample.Step;
    chunk.VoltDecimals[place] = sample.VoltDecimals;
    chunk.CurrDecimals[place] = sample.CurrDecimals;
    chunk.Status[place] = sample.Status;
    ++Stored;
}

void SampleStore::Clear() {
    *this = SampleStore();
}

Sample SampleStore::At(std::size_t index) const {
    const Chunk& chunk = *Chunks[index / ChunkSize];
    const std::size_t place = index % ChunkSize;
    return {chunk.Volts[place], chunk.Amps[place],         chunk.Hundredths[place],
            chunk.Step[place],  chunk.VoltDecimals[place], chunk.CurrDecimals[place],
            chunk.Status[place]};
}

const SampleStore::Stretch& SampleStore::StretchOf(std::size_t index) const {
    const auto next = std::upper_bound(
        Stretches.begin(), Stretches.end(), index,
        [](std::size_t wanted, const Stretch& stretch) { return wanted < stretch.First; });
    return *std::prev(next);
}

std::uint32_t SampleStore::RunAt(std::size_t index) const {
    return static_cast<std::uint32_t>(&StretchOf(index) - Stretches.data());
}

std::int32_t SampleStore::NumberAt(std::size_t index) const {
    const Stretch& own = StretchOf(index);
    return own.Number + static_cast<std::int32_t>(index - own.First);
}

std::size_t SampleStore::Bytes() const {
    return Chunks.size() * sizeof(Chunk) + Chunks.capacity() * sizeof(Chunks[0]) +
           Stretches.capacity() * sizeof(Stretch);
}

}  // namespace zps
