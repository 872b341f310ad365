// How long the panel's own work takes for a frame, a reply and a value. At 9600 baud a byte is on
// the line for about a millisecond, so all of this should be far below that.
#include "source/reply.h"
#include "source/step_frame.h"
#include "source/value_format.h"

#include <benchmark/benchmark.h>

#include <array>

namespace zps::bench {
namespace {

// The frame of 32 bytes that uploads a step, from its values.
void BuildStepFrame(benchmark::State& state) {
    const StepBytes values{SetPointBytes(12.5, 100), SetPointBytes(1, 1000), TimeBytes(1.5),
                           SlopeBytes(0.1), SetPointBytes(218, 100)};
    for (auto _ : state) benchmark::DoNotOptimize(UploadFrame(1, 5, values));
}
BENCHMARK(BuildStepFrame);

// A single command, from numbers.
void BuildCommand(benchmark::State& state) {
    for (auto _ : state) benchmark::DoNotOptimize(SingleCommand(1, 'V', {4, 0xD2}));
}
BENCHMARK(BuildCommand);

void JudgeAndDecodeDataReply(benchmark::State& state) {
    std::array<std::uint8_t, DataLength> bytes{1, 2, 9, 4, 0, 0, 0x2F, 0x44, 0, 0x27, 0x10, 3};
    for (auto _ : state) {
        benchmark::DoNotOptimize(bytes);
        if (JudgeReply(bytes, ExpectData, 1, CheckByte::Whole) != Reply::Data) {
            state.SkipWithError("the reply was not taken");
            break;
        }
        benchmark::DoNotOptimize(ReadDataReply(bytes));
    }
}
BENCHMARK(JudgeAndDecodeDataReply);

// Read-back values as they come, one after another.
void FormatReadBack(benchmark::State& state) {
    ValueFormat format;
    format.SetMaxVolt(150);
    int counts = 0;
    for (auto _ : state) {
        counts = (counts + 7) % 150'000;
        benchmark::DoNotOptimize(format.FormatVoltFine(static_cast<float>(counts) / 1000));
    }
}
BENCHMARK(FormatReadBack);

}  // namespace
}  // namespace zps::bench
