#include "simulator/supply.h"

#include "tests/simulator/bench.h"

#include <gtest/gtest.h>

#include <stdexcept>

namespace zps::simulator::tests {
namespace {

const Bytes On{'A', 1};
const Bytes Off{'A', 0};
constexpr std::size_t StatusAt = 3;
constexpr std::size_t CodeAt = 4;

TEST(Supply, AnswersAWholeFrameForItselfOnly) {
    Bench bench;
    EXPECT_EQ(bench.Ask(Enq), (Bytes{1, Ack, 7}));
    EXPECT_EQ(bench.Send(Control(2, Enq)), Bytes{});
    EXPECT_EQ(bench.Send(Framed(2, {Esc, 'W', 1})), Bytes{});
    EXPECT_EQ(bench.Send({1, Enq, 7}), (Bytes{1, Nak, 22}));
    EXPECT_EQ(bench.Send({2, Enq, 8}), Bytes{});
    EXPECT_EQ(bench.Send({1, 1, 1}), Bytes{});
    Bytes badSum = Framed(1, {Esc, 'W', 1});
    badSum.back() ^= 1;
    EXPECT_EQ(bench.Send(badSum), (Bytes{1, Nak, 22}));
    EXPECT_FALSE(bench.After(0s).Sensing);
}

TEST(Supply, KeepsTheSumsOfHighAddressesToOneByte) {
    Bench bench({.Address = 253});
    EXPECT_EQ(bench.Ask(Enq), (Bytes{253, Ack, 3}));
    EXPECT_FALSE(bench.Accepts({'Z', 0}));
    EXPECT_EQ(bench.Ask(Dle).back(), SumOf(ByteView(bench.Ask(Dle)).first(13)));
}

TEST(Supply, RefusesSetCommandsInLocalAndFramesWithABadOneAndChangesNothing) {
    Bench bench;
    EXPECT_EQ(bench.Ask(Dc1), (Bytes{1, Ack, 7}));
    for (const Bytes& command : {On, Bytes{'V', 1, 0}, Bytes{'R', 0}, Bytes{'S', 5}})
        EXPECT_FALSE(bench.Accepts(command));
    EXPECT_EQ(bench.Ask(Enq).at(1), Ack);
    EXPECT_EQ(bench.Ask(Dle).at(StatusAt), 0);
    EXPECT_EQ(bench.After(0s).SelectedStep, 0);
    bench.Ask(Dc3);
    EXPECT_FALSE(bench.Accepts({'S', 4, Esc, 'Z', 0}));
    EXPECT_EQ(bench.After(0s).SelectedStep, 0);
    EXPECT_TRUE(bench.Accepts({'S', 5}));
    EXPECT_EQ(bench.After(0s).SelectedStep, 5);
}

TEST(Supply, RemembersAWholeStepAsCountsAndAsValues) {
    Bench bench;
    EXPECT_TRUE(bench.Accepts({'S',  99, Esc, 'V', 4, 0xE2, Esc, 'C', 3,   0xE8, Esc, 'T', 0, 12, 1,
                               0xF4, 7,  Esc, 'D', 4, 0xD2, 56,  Esc, 'O', 0x55, 0x28}));
    const StepValues& step = bench.After(0s).Steps[99];
    EXPECT_EQ(step.VoltRaw, 1250);
    EXPECT_DOUBLE_EQ(step.Volts, 12.5);
    EXPECT_EQ(step.CurrRaw, 1000);
    EXPECT_DOUBLE_EQ(step.Amps, 1);
    EXPECT_EQ(step.OvpRaw, 21800);
    EXPECT_DOUBLE_EQ(step.OvpVolts, 218);
    EXPECT_EQ(step.TimeRaw, (std::array<std::uint8_t, 5>{0, 12, 1, 0xF4, 7}));
    EXPECT_EQ(step.StepTime, 12'500'070us);
    EXPECT_EQ(step.SlopeRaw, (std::array<std::uint8_t, 3>{4, 0xD2, 56}));
    EXPECT_EQ(step.Slope, 1'234'560us);
    EXPECT_EQ(bench.After(0s).Steps[98].VoltRaw, 0);
}

TEST(Supply, TellsItsRatingsWhileTheOutputIsOff) {
    Bench bench;
    EXPECT_EQ(bench.Ask(Dle), Summed({1, 2, 9, 0xC0, 0, 0x05, 0xDC, 0x06, 0x63, 0x00, 0x64, 0, 3}));
    Bench small({.Address = 7, .Volts = 20, .Amps = 5});
    EXPECT_TRUE(small.Accepts({'S', 4, Esc, 'O', 0x27, 0x10}));
    EXPECT_EQ(small.Ask(Dle), Summed({7, 2, 9, 0xC0, 0, 0, 200, 0, 100, 0, 50, 4, 3}));
}

TEST(Supply, ReadsBackVoltageAndCurrentWhileTheOutputIsOn) {
    Bench bench({.LoadOhms = 121});
    EXPECT_TRUE(bench.Accepts({'S', 3, Esc, 'V', 0x04, 0xBA, Esc, 'A', 1}));  // 12.1 V
    EXPECT_EQ(bench.Ask(Dle), Summed({1, 2, 9, 0xC4, 0, 0x00, 0x2F, 0x44, 0x00, 0x03, 0xE8, 3, 3}));
    EXPECT_TRUE(bench.Accepts(Off));
    EXPECT_EQ(bench.Ask(Dle).at(StatusAt), 0xC0);
}

TEST(Supply, ShowsEverySwitchInItsStatusBit) {
    const std::vector<std::pair<char, std::uint8_t>> bits{{'W', 2}, {'A', 4}, {'G', 8}, {'X', 32}};
    for (const auto& [letter, bit] : bits) {
        Bench bench;
        const auto command = static_cast<std::uint8_t>(letter);
        EXPECT_TRUE(bench.Accepts({command, 1, 0, 0, 0, 0, 0}));
        EXPECT_EQ(bench.Ask(Dle).at(StatusAt), 0xC0 | bit);
        EXPECT_TRUE(bench.Accepts({command, 0, 0, 0, 0, 0, 0}));
        EXPECT_EQ(bench.Ask(Dle).at(StatusAt), 0xC0);
    }
}

TEST(Supply, HoldsTheCurrentThatIsSetOnAHeavyLoad) {
    Bench bench({.LoadOhms = 10});
    EXPECT_TRUE(bench.Accepts({'V', 0x03, 0xE8, Esc, 'C', 0x01, 0xF4, Esc, 'A', 1}));
    EXPECT_EQ(bench.Ask(Dle).at(StatusAt), 0xC4 | 16);
    EXPECT_DOUBLE_EQ(bench.After(0s).Out.Volts, 5);
    bench.Tested.SetLoad(40, bench.Now);
    EXPECT_EQ(bench.Ask(Dle).at(StatusAt), 0xC4);
    EXPECT_DOUBLE_EQ(bench.After(0s).Out.Amps, 0.25);
}

TEST(Supply, MovesTheVoltageOverTheSlopeOfTheSelectedStep) {
    Bench bench;
    EXPECT_TRUE(bench.Accepts({'V', 0x03, 0xE8, Esc, 'D', 0x07, 0xD0, 0, Esc, 'A', 1}));
    EXPECT_DOUBLE_EQ(bench.After(500ms).Out.Volts, 2.5);
    EXPECT_TRUE(bench.Accepts({'V', 0, 0}));
    EXPECT_DOUBLE_EQ(bench.After(1s).Out.Volts, 1.25);
    EXPECT_DOUBLE_EQ(bench.After(2s).Out.Volts, 0);
}

struct TripCase {
    Bytes Settings;
    double Ohms;
    int Code;
};

class Trips : public testing::TestWithParam<TripCase> {};

TEST_P(Trips, SwitchTheOutputOffWithTheirCodeUntilResetOrSwitchedOnAgain) {
    const auto& [settings, ohms, code] = GetParam();
    Bench bench;
    ASSERT_TRUE(bench.Accepts(settings));
    ASSERT_TRUE(bench.Accepts(On));
    ASSERT_EQ(bench.Ask(Dle).at(StatusAt) & 5, 4);
    const auto trip = [&, load = ohms, expected = code] {
        bench.Tested.SetLoad(load, bench.Now);
        ASSERT_TRUE(bench.Accepts({'S', 1}));
        const Bytes reply = bench.Ask(Dle);
        EXPECT_EQ(reply.at(StatusAt) & 5, 1);
        EXPECT_EQ(reply.at(CodeAt), expected);
    };
    trip();
    EXPECT_TRUE(bench.Accepts({'R', 0}));
    EXPECT_EQ(bench.Ask(Dle).at(StatusAt) & 1, 0);
    EXPECT_EQ(bench.Ask(Dle).at(CodeAt), 0);

    bench.Tested.SetLoad(100, bench.Now);
    ASSERT_TRUE(bench.Accepts(Joined({{'S', 0, Esc}, On})));
    trip();
    bench.Tested.SetLoad(100, bench.Now);
    ASSERT_TRUE(bench.Accepts(Joined({{'S', 0, Esc}, On})));
    EXPECT_EQ(bench.Ask(Dle).at(StatusAt) & 5, 4);
    EXPECT_EQ(bench.Ask(Dle).at(CodeAt), 0);
}

// Step 0 gives 10 V into 100 ohms without a trip; the load and then step 1 bring the trip about.
INSTANTIATE_TEST_SUITE_P(
    EachLimit, Trips,
    testing::Values(
        TripCase{{'V', 3, 0xE8, Esc, 'S', 1, Esc, 'V', 0x3F, 0xDF, Esc, 'O', 255, 255, Esc, 'S', 0},
                 100,
                 MaxOverVoltage},
        TripCase{{'V', 3, 0xE8, Esc, 'S', 1, Esc, 'V', 3, 0xE8, Esc, 'C', 0x4E, 0x20, Esc, 'S', 0},
                 0.5,
                 MaxOverCurrent},
        TripCase{{'V', 3, 0xE8, Esc, 'S', 1, Esc, 'V', 3, 0xE9, Esc, 'O', 3, 0xE8, Esc, 'S', 0},
                 100,
                 SetOverVoltage},
        TripCase{{'V', 3, 0xE8, Esc, 'X', 1, Esc, 'S', 1, Esc, 'V', 3, 0xE8, Esc, 'S', 0},
                 0.5,
                 SetOverCurrent}));

TEST(Supply, TakesATripFromThePersonAtTheBench) {
    Bench bench;
    EXPECT_TRUE(bench.Accepts(On));
    bench.Tested.Trip(7, bench.Now);
    EXPECT_EQ(bench.Ask(Dle).at(StatusAt), 0xC1);
    EXPECT_EQ(bench.Ask(Dle).at(CodeAt), 7);
    EXPECT_THROW(bench.Tested.Trip(0, bench.Now), std::invalid_argument);
    EXPECT_THROW(bench.Tested.SetLoad(0, bench.Now), std::invalid_argument);
    EXPECT_THROW(Supply({.Volts = 0}), std::invalid_argument);
}

}  // namespace
}  // namespace zps::simulator::tests
