// Compact storage of the log's samples: weeks of polling fit into memory.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace zps {

// One read-back. The values keep the decimals that the panel showed them with, so that their texts
// stay the same whatever becomes of the ratings.
struct Sample {
    float Volts;
    float Amps;
    std::uint32_t Hundredths;  // of a second, since the run's start; enough for 497 days
    std::uint8_t Step;         // as the supply numbers it
    std::int8_t VoltDecimals;  // 0 to 5
    std::int8_t CurrDecimals;  // the same
    std::uint8_t Status = 0;   // what the supply reported with it, bits of namespace status
};

// Samples in the order in which they came. Appending never moves earlier ones, so it costs the same
// at ten million as at ten.
class SampleStore {
  public:
    // `number` is the sample's number in its run.
    void Append(const Sample& sample, std::int32_t number);
    void Clear();

    std::size_t Count() const { return Stored; }
    // The sample at `index`, and its number; `index` is below Count().
    Sample At(std::size_t index) const;
    std::int32_t NumberAt(std::size_t index) const;
    // The run that it is of: they count up from 0, each beginning where the numbers do not go on.
    std::uint32_t RunAt(std::size_t index) const;

    // Memory that the store holds, in bytes.
    std::size_t Bytes() const;

  private:
    static constexpr std::size_t ChunkSize = 1024;

    // Field by field, for a struct would have gaps.
    struct Chunk {
        template <typename Value>
        using Field = std::array<Value, ChunkSize>;

        Field<float> Volts;
        Field<float> Amps;
        Field<std::uint32_t> Hundredths;
        Field<std::uint8_t> Step;
        Field<std::int8_t> VoltDecimals;
        Field<std::int8_t> CurrDecimals;
        Field<std::uint8_t> Status;
    };
    static_assert(sizeof(Chunk) <= 16 * ChunkSize);

    // Numbers count up from `Number`, at `First`, to the next stretch.
    struct Stretch {
        std::size_t First;
        std::int32_t Number;
    };

    const Stretch& StretchOf(std::size_t index) const;

    std::vector<std::unique_ptr<Chunk>> Chunks;
    std::vector<Stretch> Stretches;
    std::size_t Stored = 0;
};

}  // namespace zps
