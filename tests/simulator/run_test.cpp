#include "simulator/supply.h"
#include "tests/simulator/bench.h"

#include <gtest/gtest.h>

namespace zps::simulator::tests {
namespace {

// Steps 1 and 2 give 5 V for 2 s and 10 V for 3 s, the latter over a slope of 1 s.
class AutomaticRun : public testing::Test {
  protected:
    AutomaticRun() {
        for (const Bytes& command :
             {Bytes{'S', 1, Esc, 'V', 1, 0xF4, Esc, 'T', 0, 2, 0, 0, 0},
              Bytes{'S', 2, Esc, 'V', 3, 0xE8, Esc, 'T', 0, 3, 0, 0, 0, Esc, 'D', 3, 0xE8, 0},
              Bytes{'S', 0}, Bytes{'B', 2, 1, 255}, Bytes{'F', 0, 2}})
            EXPECT_TRUE(Tester.Accepts(command));
    }
    void Start() { EXPECT_TRUE(Tester.Accepts({'G', 1, Esc, 'A', 1})); }
    void ExpectAt(Clock::duration later, int step, double volts) {
        const SupplyState& state = Tester.After(later);
        EXPECT_EQ(state.ActiveStep, step);
        EXPECT_NEAR(state.Out.Volts, volts, 1e-9);
        EXPECT_EQ(Tester.Ask(Dle).at(11), step);
    }

    Bench Tester;
};

TEST_F(AutomaticRun, GoesThroughTheSequenceAsOftenAsTheCountSaysAndEndsWithItsCode) {
    Start();
    ExpectAt(500ms, 2, 5);
    ExpectAt(500ms, 2, 10);
    ExpectAt(1999ms, 2, 10);
    ExpectAt(1ms, 1, 5);
    ExpectAt(2s, 2, 5);
    EXPECT_EQ(Tester.Tested.State().CyclesDone, 1);
    ExpectAt(500ms, 2, 7.5);
    ExpectAt(4499ms, 1, 5);
    ExpectAt(1h, 0, 0);
    const Bytes end = Tester.Ask(Dle);
    EXPECT_EQ(end.at(3), 0xC0 | 8);
    EXPECT_EQ(end.at(4), AutoRunEnded);
    EXPECT_TRUE(Tester.Accepts({'A', 1}));
    EXPECT_EQ(Tester.Ask(Dle).at(4), 0);
    EXPECT_TRUE(Tester.Tested.State().Running);
}

TEST_F(AutomaticRun, PassesThroughStepsWithoutATimeRunsOnceWithoutACountAndNeedsASequence) {
    for (const std::uint8_t step : Bytes{1, 2})
        EXPECT_TRUE(Tester.Accepts({'S', step, Esc, 'T', 0, 0, 0, 0, 0}));
    EXPECT_TRUE(Tester.Accepts({'F', 0, 0}));
    Start();
    EXPECT_EQ(Tester.After(999ms).ActiveStep, 2);
    ExpectAt(1ms, 1, 5);
    EXPECT_FALSE(Tester.After(1ms).Output);
    EXPECT_TRUE(Tester.Accepts({'A', 1, Esc, 'B', 255}));
    EXPECT_FALSE(Tester.Tested.State().Running);
}

// The voltage comes down from 10 V to 5 V over 1 s under a limit of 6 V.
TEST_F(AutomaticRun, EndsAtATripThatNobodyWatched) {
    EXPECT_TRUE(Tester.Accepts({'S', 1, Esc, 'O', 2, 0x58, Esc, 'D', 3, 0xE8, 0}));
    Start();
    const SupplyState& state = Tester.After(1h);
    EXPECT_FALSE(state.Output || state.Running);
    EXPECT_TRUE(state.Fault);
    EXPECT_EQ(state.Code, SetOverVoltage);
}

}  // namespace
}  // namespace zps::simulator::tests
