#include "power/log/sample_store.h"

#include <gtest/gtest.h>

#include <tuple>

namespace zps::tests {
namespace {

Sample SampleOf(std::uint32_t k) {
    return {static_cast<float>(k), 0.5F, k, static_cast<std::uint8_t>(k % 256), 2, 3};
}

TEST(SampleStore, KeepsEverySampleInSixteenBytesOrLess) {
    constexpr std::uint32_t count = 1'000'000;
    SampleStore store;
    for (std::uint32_t k = 0; k < count; ++k) store.Append(SampleOf(k), static_cast<int>(k) + 1);
    for (std::uint32_t k = 0; k < count; k += 997) {
        const auto& [volts, amps, hundredths, step, voltDecimals, currDecimals] = store.At(k);
        ASSERT_EQ(std::tuple(volts, amps, hundredths, step, voltDecimals, currDecimals),
                  std::tuple(static_cast<float>(k), 0.5F, k, k % 256, 2, 3));
    }
    EXPECT_LT(static_cast<double>(store.Bytes()) / count, 16);
}

}  // namespace
}  // namespace zps::tests
