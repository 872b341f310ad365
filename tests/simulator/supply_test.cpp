#include "simulator/supply.h"

#include "simulator/options.h"
#include "simulator/typed.h"
#include "tests/support/frames.h"

#include <gtest/gtest.h>

#include <tuple>

namespace zps::simulator::tests {
namespace {

using namespace std::chrono_literals;
using namespace zps::tests;

// A supply on a bench with a clock of the test's own.
struct Bench {
    explicit Bench(const SupplyOptions& options = {}) : Tested(options) { Ask(Dc3); }

    // The reply to `bytes`, empty if there is none.
    Bytes Send(const Bytes& bytes) {
        FrameSplitter splitter;
        splitter.Take(bytes, Now);
        Bytes reply;
        for (const Frame& frame : splitter.Frames(Now + FrameSplitter::IdleGap))
            reply = Tested.Answer(frame, Now).value_or(Bytes{});
        return reply;
    }
    Bytes Ask(std::uint8_t code) { return Send(Control(Tested.Address(), code)); }
    // Whether one command with its data, after ESC, is acknowledged.
    bool Accepts(const Bytes& command) {
        return Send(Framed(Tested.Address(), Joined({{Esc}, command}))).at(1) == Ack;
    }
    const SupplyState& After(Clock::duration time) {
        Now += time;
        Tested.Advance(Now);
        return Tested.State();
    }

    Time Now{1h};
    Supply Tested;
};

TEST(Supply, AnswersAWholeFrameForItselfOnlyAlsoBehindNoise) {
    Bench bench;
    const Bytes frame = Framed(1, {Esc, 'W', 1});
    for (const Bytes& before : {Bytes{}, Bytes{0xFF}, Bytes{5, 5}, Bytes{1, 2, 8, 27}, frame})
        EXPECT_EQ(bench.Send(Joined({before, Control(1, Enq)})), (Bytes{1, Ack, 7}));
    Bytes tooLong = Framed(1, {Esc, 'B', 1, 5, 6, 255});  // its data holds a whole probe
    ++tooLong[2];
    for (const Bytes& broken : {tooLong, Bytes{1, Enq}})
        EXPECT_EQ(bench.Send(broken), (Bytes{1, Nak, 22}));
    for (const Bytes& other : {Framed(2, {Esc, 'W', 0}), Bytes{1, 1, 1}, Bytes(4)})
        EXPECT_EQ(bench.Send(other), Bytes{});
    EXPECT_TRUE(bench.After(0s).Sensing);

    Bench high({.Address = 253});
    EXPECT_EQ(high.Ask(Enq), (Bytes{253, Ack, 3}));
    EXPECT_EQ(high.Ask(Dle).back(), SumOf(ByteView(high.Ask(Dle)).first(13)));
}

TEST(Supply, RefusesFramesWithABadCommandAndChangesNothing) {
    Bench bench;
    for (const Bytes& bad :
         {Bytes{'Z', 0}, Bytes{'A', 2}, Bytes{'A', 1, 1}, Bytes{'V', 1}, Bytes{'B', 1, 2},
          Bytes{'B', 100, 255}, Bytes{'F', 0xC3, 0x51}, Bytes{'T', 0, 0, 3, 0xE8, 0}})
        EXPECT_FALSE(bench.Accepts(Joined({{'S', 4, Esc}, bad}))) << testing::PrintToString(bad);
    EXPECT_EQ(bench.After(0s).SelectedStep, 0);
}

TEST(Supply, TripsAtTheLimitsOfItsRatingsUntilItIsSwitchedOnAgain) {
    for (const auto& [command, code] :
         {std::pair{Bytes{'V', 0x3F, 0xDF, Esc, 'O', 255, 255, Esc, 'C', 255, 255, Esc, 'A', 1},
                    MaxOverVoltage},
          {Bytes{'V', 0x27, 0x10, Esc, 'C', 0x4E, 0x20, Esc, 'A', 1}, MaxOverCurrent}}) {
        Bench bench({.LoadOhms = 5});
        EXPECT_TRUE(bench.Accepts(command) && bench.After(0s).Code == code);
        EXPECT_TRUE(bench.After(0s).Fault && !bench.After(0s).Output);
        EXPECT_TRUE(bench.Accepts({'S', 1, Esc, 'A', 1}) && bench.After(0s).Output);
        EXPECT_FALSE(bench.After(0s).Fault);
    }
}

// Steps 1 and 2 give 5 V for 2 s and 10 V for 3 s, the latter over a slope of 1 s.
struct AutomaticRun : testing::Test, Bench {
    AutomaticRun() {
        for (const Bytes& command :
             {Bytes{'S', 1, Esc, 'V', 1, 0xF4, Esc, 'T', 0, 2, 0, 0, 0},
              Bytes{'S', 2, Esc, 'V', 3, 0xE8, Esc, 'T', 0, 3, 0, 0, 0, Esc, 'D', 3, 0xE8, 0},
              Bytes{'S', 0}, Bytes{'B', 2, 1, 255}, Bytes{'F', 0, 2}, Bytes{'G', 1}})
            EXPECT_TRUE(Accepts(command));
    }
};

TEST_F(AutomaticRun, GoesThroughTheSequenceAsOftenAsTheCountSaysAndEndsWithItsCode) {
    EXPECT_TRUE(Accepts({'A', 1}));
    const struct {
        Clock::duration Later;
        int Step;
        double Volts;
    } states[]{{500ms, 2, 5}, {500ms, 2, 10},  {1999ms, 2, 10}, {1ms, 1, 5},
               {2s, 2, 5},    {500ms, 2, 7.5}, {4499ms, 1, 5},  {1h, 0, 0}};
    for (const auto& [later, step, volts] : states) {
        EXPECT_NEAR(After(later).Out.Volts, volts, 1e-9);
        EXPECT_EQ(Ask(Dle).at(11), step);
    }
    EXPECT_EQ(Ask(Dle).at(3), 0xC0 | 8);
    EXPECT_EQ(Ask(Dle).at(4), AutoRunEnded);
    EXPECT_TRUE(Accepts({'A', 1}));
    EXPECT_TRUE(After(0s).Running && After(0s).Code == 0);
    EXPECT_TRUE(Accepts({'B', 255}));
    EXPECT_FALSE(After(1ms).Running);
}

TEST_F(AutomaticRun, PassesThroughStepsWithoutATimeAndRunsOnceWithoutACount) {
    for (const std::uint8_t step : Bytes{1, 2})
        EXPECT_TRUE(Accepts({'S', step, Esc, 'T', 0, 0, 0, 0, 0}));
    EXPECT_TRUE(Accepts({'F', 0, 0, Esc, 'A', 1}));
    EXPECT_EQ(After(999ms).ActiveStep, 2);
    EXPECT_EQ(After(1ms).ActiveStep, 1);
    EXPECT_FALSE(After(1ms).Output);
}

// The voltage comes down from 10 V to 5 V over 1 s under a limit of 6 V.
TEST_F(AutomaticRun, EndsAtATripThatNobodyWatched) {
    EXPECT_TRUE(Accepts({'S', 1, Esc, 'O', 2, 0x58, Esc, 'D', 3, 0xE8, 0, Esc, 'A', 1}));
    EXPECT_EQ(After(1h).Code, SetOverVoltage);
    EXPECT_FALSE(After(0s).Output || After(0s).Running);
}

using Words = std::vector<std::string>;

TEST(CommandLine, TakesSuppliesLoadPortAndFaults) {
    const auto options = ParseOptions(Words{"--supply", "1:150V/10A", "--load", "12.5", "--supply",
                                            "7:2.5V/0.5A", "--port", "3", "--drop", "0.25",
                                            "--silent", "--delay", "40", "--delay", "0"});
    ASSERT_EQ(options.Supplies.size(), 2U);
    const auto& [address, volts, amps, load] = options.Supplies[1];
    EXPECT_EQ(std::tuple(address, volts, amps), std::tuple(7, 2.5, 0.5));
    EXPECT_EQ(options.Supplies[0].LoadOhms, 12.5);
    ASSERT_EQ(options.LineFaults.size(), 2U);
    EXPECT_EQ(std::tuple(options.Port, options.LineFaults[0].When.Rate, options.LineFaults[1].Kind),
              std::tuple(3, 0.25, FaultKind::Silent));
    EXPECT_EQ(ParseOptions(Words{}).Supplies.size(), 1U);
    const Words drawn{"--drop", "0.5"};
    EXPECT_EQ(RepeatText(drawn, 7), "zps-simulator --drop 0.5 --seed 7");
    const Words repeated{"--drop", "0.5", "--seed", "7"};
    EXPECT_EQ(RepeatText(repeated, ParseOptions(repeated).Seed.value()),
              "zps-simulator --drop 0.5 --seed 7");
}

TEST(CommandLine, RefusesWordsThatItDoesNotUnderstand) {
    for (const Words& words : {Words{"--volts"}, Words{"--supply"}, Words{"--supply", "1:1V/1Ax"},
                               Words{"--port", "1.5"}, Words{"--drop", "1.1"}, Words{"--load", "0"},
                               Words{"--garble", "nan"}, Words{"--silent", "2"},
                               Words{"--supply", "1:1V/1A", "--supply", "1:2V/1A"}})
        EXPECT_THROW(ParseOptions(words), UsageError) << words.back();
}

}  // namespace
}  // namespace zps::simulator::tests
