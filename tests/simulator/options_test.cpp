#include "simulator/options.h"

#include <gtest/gtest.h>

namespace zps::simulator::tests {
namespace {

ProgramOptions Read(const std::vector<std::string>& words) {
    return ParseOptions(words);
}

TEST(CommandLine, TakesSuppliesLoadPortAndFaults) {
    const auto plain = Read({});
    ASSERT_EQ(plain.Supplies.size(), 1U);
    EXPECT_EQ(plain.Supplies[0].Volts, 150);
    EXPECT_EQ(plain.Port, 1);
    const auto options =
        Read({"--supply", "1:150V/10A", "--load", "12.5", "--supply", "7:2.5V/0.5A", "--port", "3",
              "--drop", "0.25", "--delay", "40", "--silent"});
    ASSERT_EQ(options.Supplies.size(), 2U);
    EXPECT_EQ(options.Supplies[1].Address, 7);
    EXPECT_EQ(options.Supplies[1].Volts, 2.5);
    EXPECT_EQ(options.Supplies[1].Amps, 0.5);
    EXPECT_EQ(options.Supplies[0].LoadOhms, 12.5);
    EXPECT_EQ(options.Port, 3);
    EXPECT_EQ(options.LineFaults.Drop, 0.25);
    EXPECT_EQ(options.LineFaults.Delay.count(), 40);
    EXPECT_TRUE(options.LineFaults.Silent);
}

TEST(CommandLine, RefusesWordsThatItDoesNotUnderstand) {
    const std::vector<std::vector<std::string>> bad{{"--volts"},
                                                    {"supply"},
                                                    {"--supply"},
                                                    {"--supply", "1:150V10A"},
                                                    {"--supply", "1:V/A"},
                                                    {"--port", "5"},
                                                    {"--port", "1.5"},
                                                    {"--supply", "0:1V/1A"},
                                                    {"--drop", "1.1"},
                                                    {"--drop"},
                                                    {"--delay", "-1"},
                                                    {"--supply", "1:1V/1Ax"},
                                                    {"--load", "0"},
                                                    {"--load", "12 ohm"},
                                                    {"--garble", "nan"},
                                                    {"--supply", "1:9e9V/1A"},
                                                    {"--bad", "1"},
                                                    {"--silent", "1"},
                                                    {"--supply", "1:1V/1A", "--supply", "1:2V/1A"}};
    for (const auto& words : bad) EXPECT_THROW(Read(words), UsageError) << words.back();
}

}  // namespace
}  // namespace zps::simulator::tests
