#include "power/log/sample_store.h"

#include <gtest/gtest.h>

#include <tuple>

namespace zps::tests {
namespace {

Sample SampleOf(std::uint32_t k) {
    return {static_cast<float>(k), 0.5F, k, static_cast<std::uint8_t>(k % 256), 2, 3};
}

auto Fields(const Sample& sample) {
    const auto& [volts, amps, hundredths, step, voltDecimals, currDecimals] = sample;
    return std::tuple(volts, amps, hundredths, step, voltDecimals, currDecimals);
}

TEST(SampleStore, KeepsEverySampleInSixteenBytesOrLess) {
    constexpr std::uint32_t count = 1'000'000;
    SampleStore store;
    for (std::uint32_t k = 0; k < count; ++k) store.Append(SampleOf(k), static_cast<int>(k) + 1);
    for (std::uint32_t k = 0; k < count; k += 997) {
        ASSERT_EQ(Fields(store.At(k)), Fields(SampleOf(k)));
    }
    EXPECT_LT(static_cast<double>(store.Bytes()) / count, 16);
}

TEST(SampleStore, NumbersTheSamplesOfEachRunByThemselves) {
    SampleStore store;
    for (const int number : {1, 2, 3, 1, 1, 2}) store.Append(SampleOf(0), number);
    std::size_t index = 0;
    for (const int number : {1, 2, 3, 1, 1, 2}) EXPECT_EQ(store.NumberAt(index++), number);
    store.Clear();
    EXPECT_EQ(store.Bytes(), 0U);
    store.Append(SampleOf(0), 3);
    EXPECT_EQ(store.NumberAt(0), 3);
}

}  // namespace
}  // namespace zps::tests
