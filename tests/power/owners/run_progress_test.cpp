// What the panel says of its numbers, of the time of a run and of an automatic run.
#include "power/panel/reading_badge.h"
#include "power/run/auto_progress.h"
#include "power/run/run_clock.h"
#include "tests/support/scripted_time.h"

#include <gtest/gtest.h>

#include <string>

namespace zps::tests {
namespace {

using namespace std::chrono_literals;
using enum NumberFrom;

TEST(TheBadge, NeverCallsANumberMeasuredThatIsNot) {
    struct Case {
        ShownNumbers Numbers;
        const char* Text;
        const char* Spoken = nullptr;  // the same as the text
    };
    const std::optional<std::chrono::milliseconds> none;
    for (const Case& one : {
             Case{{true, false, StepTable, StepTable, none}, "설정값"},
             Case{{true, true, StepTable, StepTable, 0ms}, "설정값"},
             Case{{true, true, Reading, Reading, 0ms}, "측정값"},
             Case{{true, true, Reading, Reading, 999ms}, "측정값"},
             Case{{true, true, Reading, Reading, 1000ms}, "응답 없음 1초", "응답 없음"},
             Case{{true, true, Reading, Reading, 61999ms}, "응답 없음 61초", "응답 없음"},
             Case{{true, true, StepTable, StepTable, 2s}, "응답 없음 2초", "응답 없음"},
             Case{{true, true, Reading, Reading, none}, "마지막 측정값"},
             Case{{true, false, Reading, Reading, none}, "마지막 측정값"},
             Case{{true, false, Reading, Reading, 0ms}, "마지막 측정값"},
             Case{{true, false, StepTable, Reading, none}, "전압 설정값 · 전류 마지막 측정값"},
             Case{{true, true, Reading, StepTable, 10ms}, "전압 측정값 · 전류 설정값"},
             Case{{false, true, Reading, Reading, 5s}, "정격 모름"},
             Case{{false, false, StepTable, StepTable, none}, "정격 모름"},
         }) {
        const ReadingBadge badge = BadgeFor(one.Numbers);
        EXPECT_EQ(badge.Text.toStdString(), one.Text);
        EXPECT_EQ(badge.Spoken.toStdString(), one.Spoken != nullptr ? one.Spoken : one.Text);
    }
}

TEST(TheRunClock, StandsWhenTheOutputGoesOffAndStartsAnewWithTheNextRun) {
    PlainEventLoop loop;
    ScriptedLine line;
    ScriptedTime time(line, loop);
    RunClock clock(time);
    EXPECT_EQ(clock.Elapsed(), std::nullopt);
    clock.OutputIs(false);
    EXPECT_EQ(clock.Elapsed(), std::nullopt);
    for (const auto span : {3000ms, 500ms}) {
        clock.OutputIs(true);
        time.Pass(span);
        clock.OutputIs(true);
        EXPECT_EQ(clock.Elapsed(), span);
        clock.OutputIs(false);
        time.Pass(1h);
        EXPECT_EQ(clock.Elapsed(), span);
    }
}

// Reports a step every 100 ms, as its digits tell, and gives what is known then.
class TheAutoRun : public testing::Test {
  protected:
    std::string Run(const std::string& steps) {
        for (const char step : steps) {
            Now += 100ms;
            Progress.Reported(step - '0', Now);
        }
        const auto end = Progress.EstimatedEnd();
        const auto seconds = [&] {
            return std::to_string(std::chrono::round<std::chrono::seconds>(*end - Begin).count());
        };
        return (Progress.Cycle() ? std::to_string(*Progress.Cycle()) : "-") + " of " +
               std::to_string(Progress.Cycles()) + ", " + (end ? seconds() : "?");
    }

    AutoProgress Progress;
    const AutoProgress::Time Begin{std::chrono::hours(1)};
    AutoProgress::Time Now = Begin;
};

TEST_F(TheAutoRun, CountsACycleWheneverTheSequenceBeginsAnew) {
    EXPECT_FALSE(Progress.Running());
    Progress.Begin({{3, 500ms}, {7, 500ms}, {3, 500ms}, {1, 1500ms}}, 3, Now);
    EXPECT_EQ(Run("0"), "- of 3, 9");  // the step that was selected
    EXPECT_EQ(Run("33333"), "1 of 3, 9");
    EXPECT_EQ(Run("7777733333"), "1 of 3, 9");
    EXPECT_EQ(Run("111111111111111"), "1 of 3, 9");
    EXPECT_EQ(Run("33333"
                  "77777"),
              "2 of 3, 9");
    EXPECT_EQ(Run("3333311111111111"
                  "3333377777333339"),
              "3 of 3, 9");
    Progress.End();
    EXPECT_EQ(Progress.Cycle(), std::nullopt);
    Progress.Reported(3, Now);
}

TEST_F(TheAutoRun, CountsNothingThatItCannotHaveSeen) {
    for (const auto& stages :
         std::vector<std::vector<AutoProgress::Stage>>{{{2, 1s}, {2, 1s}, {5, 1s}},
                                                       {{2, 1s}, {5, 1s}, {2, 1s}},
                                                       {{2, 3s}},
                                                       {{2, 2900ms}, {5, 100ms}}}) {
        Progress.Begin(stages, 2, Now = Begin);
        EXPECT_EQ(Run("2525252"), "- of 2, 6");
    }
    Progress.Begin({{2, 1s}, {5, 1s}}, 0, Now = Begin);
    EXPECT_EQ(Run("252"), "2 of 0, ?");
    Now += 1500ms;  // a silent line: the step may have come and gone
    EXPECT_EQ(Run("5"), "- of 0, ?");
}

}  // namespace
}  // namespace zps::tests
