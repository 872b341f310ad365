#include "simulator/options.h"

#include <gtest/gtest.h>

#include <tuple>

namespace zps::simulator::tests {
namespace {

using Words = std::vector<std::string>;

TEST(CommandLine, TakesSuppliesLoadPortAndFaults) {
    const auto options =
        ParseOptions(Words{"--supply", "1:150V/10A", "--load", "12.5", "--supply", "7:2.5V/0.5A",
                           "--port", "3", "--drop", "0.25", "--delay", "40", "--silent"});
    ASSERT_EQ(options.Supplies.size(), 2U);
    const auto& [address, volts, amps, load] = options.Supplies[1];
    EXPECT_EQ(std::tuple(address, volts, amps), std::tuple(7, 2.5, 0.5));
    EXPECT_EQ(options.Supplies[0].LoadOhms, 12.5);
    const Faults& faults = options.LineFaults;
    EXPECT_EQ(std::tuple(options.Port, faults.Drop, faults.Delay, faults.Silent),
              std::tuple(3, 0.25, std::chrono::milliseconds(40), true));
    EXPECT_EQ(ParseOptions(Words{}).Supplies.size(), 1U);
}

TEST(CommandLine, RefusesWordsThatItDoesNotUnderstand) {
    for (const Words& words : {Words{"--volts"}, Words{"--supply"}, Words{"--supply", "1:1V/1Ax"},
                               Words{"--port", "1.5"}, Words{"--drop", "1.1"}, Words{"--load", "0"},
                               Words{"--garble", "nan"}, Words{"--silent", "1"},
                               Words{"--supply", "1:1V/1A", "--supply", "1:2V/1A"}})
        EXPECT_THROW(ParseOptions(words), UsageError) << words.back();
}

}  // namespace
}  // namespace zps::simulator::tests
