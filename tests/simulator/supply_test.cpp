#include "simulator/supply.h"

#include "tests/simulator/bench.h"

#include <gtest/gtest.h>

namespace zps::simulator::tests {
namespace {

constexpr std::size_t StatusAt = 3;
constexpr std::size_t CodeAt = 4;

TEST(Supply, AnswersAWholeFrameForItselfOnlyAlsoBehindNoise) {
    Bench bench;
    const Bytes probe = Control(1, Enq);
    const Bytes frame = Framed(1, {Esc, 'W', 1});
    for (const Bytes& before : {Bytes{}, Bytes{0xFF}, Bytes{5, 5}, Bytes{1, 2, 8, 27}, frame})
        EXPECT_EQ(bench.Send(Joined({before, probe})), (Bytes{1, Ack, 7}));
    EXPECT_TRUE(bench.After(0s).Sensing);

    Bytes badSum = Framed(1, {Esc, 'W', 0});
    badSum.back() ^= 1;
    Bytes tooLong = Framed(1, {Esc, 'B', 1, 5, 6, 255});  // its data holds a whole probe
    ++tooLong[2];
    for (const Bytes& broken : {badSum, tooLong, Bytes{1, Enq}, Bytes{1, Enq, 7}})
        EXPECT_EQ(bench.Send(broken), (Bytes{1, Nak, 22}));
    for (const Bytes& other : {Control(2, Enq), Framed(2, {Esc, 'W', 0}), Bytes{1, 1, 1}, Bytes(4)})
        EXPECT_EQ(bench.Send(other), Bytes{});
    EXPECT_TRUE(bench.After(0s).Sensing);

    Bench high({.Address = 253});
    EXPECT_EQ(high.Ask(Enq), (Bytes{253, Ack, 3}));
    EXPECT_EQ(high.Ask(Dle).back(), SumOf(ByteView(high.Ask(Dle)).first(13)));
}

TEST(Supply, RefusesFramesWithABadCommandAndSetCommandsInLocalAndChangesNothing) {
    Bench bench;
    for (const Bytes& bad : {Bytes{'Z', 0}, Bytes{'A', 2}, Bytes{'A', 1, 1}, Bytes{'V', 1},
                             Bytes{'S', 100}, Bytes{'B', 1, 2}, Bytes{'B', 100, 255},
                             Bytes{'F', 0xC3, 0x51}, Bytes{'T', 0, 0, 3, 0xE8, 0}})
        EXPECT_FALSE(bench.Accepts(Joined({{'S', 4, Esc}, bad}))) << testing::PrintToString(bad);
    EXPECT_EQ(bench.Ask(Dc1), (Bytes{1, Ack, 7}));
    for (const Bytes& command : {Bytes{'A', 1}, Bytes{'V', 1, 0}, Bytes{'R', 0}, Bytes{'S', 5}})
        EXPECT_FALSE(bench.Accepts(command));
    EXPECT_EQ(bench.Ask(Dle).at(StatusAt), 0);
    EXPECT_EQ(bench.After(0s).SelectedStep, 0);
}

struct TripCase {
    Bytes Settings;  // of step 1, or for all
    double Ohms;
    int Code;
};

// Step 0 gives 10 V into 100 ohms without a trip; the load and then step 1 bring the trip about.
TEST(Supply, TripsWithItsCodeUntilResetOrSwitchedOnAgain) {
    const std::vector<TripCase> cases{{{'V', 0x3F, 0xDF, Esc, 'O', 255, 255}, 100, MaxOverVoltage},
                                      {{'V', 3, 0xE8, Esc, 'C', 0x4E, 0x20}, 0.5, MaxOverCurrent},
                                      {{'V', 3, 0xE9, Esc, 'O', 3, 0xE8}, 100, SetOverVoltage},
                                      {{'V', 3, 0xE8, Esc, 'X', 1}, 0.5, SetOverCurrent}};
    for (const auto& [settings, ohms, code] : cases) {
        SCOPED_TRACE(code);
        Bench bench;
        ASSERT_TRUE(bench.Accepts(Joined({{'V', 3, 0xE8, Esc, 'S', 1, Esc}, settings})));
        for (const Bytes& end : {Bytes{'R', 0}, Bytes{'A', 1}}) {
            ASSERT_TRUE(bench.Accepts({'S', 0, Esc, 'A', 1}));
            ASSERT_EQ(bench.Ask(Dle).at(StatusAt) & 5, 4);
            bench.Tested.SetLoad(ohms, bench.Now);
            ASSERT_TRUE(bench.Accepts({'S', 1}));
            EXPECT_EQ(bench.Ask(Dle).at(StatusAt) & 5, 1);
            EXPECT_EQ(bench.Ask(Dle).at(CodeAt), code);
            bench.Tested.SetLoad(100, bench.Now);
            ASSERT_TRUE(bench.Accepts(Joined({{'S', 0, Esc}, end})));
            EXPECT_EQ(bench.Ask(Dle).at(StatusAt) & 1, 0);
            EXPECT_EQ(bench.Ask(Dle).at(CodeAt), 0);
        }
    }
}

}  // namespace
}  // namespace zps::simulator::tests
