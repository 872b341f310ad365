#include "power/run/auto_progress.h"

#include "power/link/held_steps.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

#include <sstream>

namespace zps::tests {
namespace {

// The supply holds steps 0 to 3: 10 s, 20 s, 5 s with a slope of 30 s, and 0.1 s.
struct RunOfTheOutput : testing::Test, ScriptedLink {
    RunOfTheOutput() {
        OnReply = [this](Reply result) { Answer.Heard(result); };
        Source.SetStartScales();
        for (int step = 0; step < 4; ++step) {
            const double times[]{10, 20, 5, 0.1};
            for (const StepValue value : {StepValue::Volt, StepValue::Curr, StepValue::Ovp})
                Source.StoreStep(value, step, {1, "1.00"});
            Source.StoreStep(StepValue::Time, step, FormatSeconds(times[step]));
            Source.StoreStep(StepValue::Slope, step, FormatSeconds(step == 2 ? 30 : 0));
            Line->Answer(Acknowledged);
            Held.Select(step, AllValues(), UploadFrame(1, step, Source.WireOf(step)));
            Time.Pass(1ms);
        }
        Progress.OnChange([this] { ++Told; });
    }
    // Step, cycle and seconds to the estimated end, after `span` with `step` reported.
    std::string After(std::chrono::milliseconds span, int step) {
        Time.Pass(span);
        Progress.Reported(step);
        return State();
    }
    std::string State() const {
        std::ostringstream state;
        state << Progress.RunningStep().value_or(-1);
        if (const auto cycle = Progress.RunningCycle())
            state << " " << cycle->Now << "/" << cycle->Of.value_or(-1);
        if (const auto end = Progress.EstimatedEnd())
            state << " " << std::chrono::duration<double>(*end - Time.Now()).count();
        return state.str();
    }
    void Start(const std::vector<int>& sequence, int count, bool automatic = true) {
        Progress.SequenceSent(sequence);
        Progress.CountSent(count);
        Progress.OutputSwitched(true, automatic);
    }

    AwaitedAnswer Answer{Source, *Port, Sender, Time};
    HeldSteps Held{Source, Sender, Answer};
    AutoProgress Progress{Source, Time};
    int Told = 0;
};

TEST_F(RunOfTheOutput, CountsCyclesByTheStepsThatAreReportedAndCorrectsTheEnd) {
    Start({0, 1, 0, 3, 2}, 2);
    EXPECT_EQ(State(), "-1 140.2");
    EXPECT_EQ(After(200ms, 0), "0 1/2 140.2");
    EXPECT_EQ(After(9s, 0), "0 1/2 131.2");
    EXPECT_EQ(Told, 2);
    EXPECT_EQ(After(2s, 1), "1 1/2 130.2");
    EXPECT_EQ(After(20s, 0), "0 1/2 110.2");
    EXPECT_EQ(After(10s, 2), "2 1/2 100.1");  // step 3 was too short to be seen
    EXPECT_EQ(After(31s, 0), "0 2/2 70.1");
    for (const int step : {1, 0, 3}) After(1s, step);
    EXPECT_EQ(After(1s, 2), "2 2/2 30");
    EXPECT_EQ(After(31s, 0), "0");  // it goes on beyond what was asked for
    Progress.OutputSwitched(false, true);
    Told = 0;
    EXPECT_EQ(After(1s, 0), "-1");
    EXPECT_EQ(Told, 0);
}

TEST_F(RunOfTheOutput, ClaimsNothingThatNobodyCanKnow) {
    Start({0, 1}, 2, false);
    EXPECT_EQ(After(1s, 7), "7");
    Start({0, 1}, 0);
    EXPECT_EQ(After(1s, 0), "0 1/-1");
    for (const int step : {1, 0}) After(1s, step);
    EXPECT_EQ(State(), "0 2/-1");
    EXPECT_EQ(After(1s, 2), "2");  // no step of the sequence
    Start({0, 0, 3}, 2);           // a round of it can't be seen
    EXPECT_EQ(After(1s, 0), "0 39.2");
    EXPECT_EQ(After(1s, 3), "3 38.2");
    Start({0, 1, 4}, 2);  // step 4 was never sent
    EXPECT_EQ(After(1s, 0), "0");
    Source.StoreStep(StepValue::Time, 1, FormatSeconds(50000));
    Start({0, 1}, 50000);
    EXPECT_EQ(After(1s, 0), "0 1/50000");  // in some eighty years
    Start({0, 1}, 2);
    EXPECT_EQ(After(1s, 0), "0 1/2 100020");
    Progress.CountRefused();
    EXPECT_EQ(State(), "0 1/-1");
    Progress.SequenceRefused();
    EXPECT_EQ(After(1s, 1), "1");
    Progress.OutputSwitched(true, true);
    EXPECT_EQ(After(1s, 0), "0");
    Start({0, 1}, 2);
    Progress.Forget();
    Progress.OutputSwitched(true, true);
    EXPECT_EQ(After(1s, 0), "0");
}

}  // namespace
}  // namespace zps::tests
