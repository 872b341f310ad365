// What the panel says of its numbers and of the time of a run.
#include "power/panel/reading_badge.h"
#include "power/run/run_clock.h"
#include "tests/support/scripted_time.h"

#include <gtest/gtest.h>

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
             Case{{true, false, StepTable, StepTable, none, true}, "설정값"},
             Case{{true, true, StepTable, StepTable, 0ms, true}, "설정값"},
             Case{{true, true, Reading, Reading, 0ms, true}, "측정값"},
             Case{{true, true, Reading, Reading, 999ms, true}, "측정값"},
             Case{{true, true, Reading, Reading, 1000ms, true}, "응답 없음 1초", "응답 없음"},
             Case{{true, true, Reading, Reading, 61999ms, true}, "응답 없음 61초", "응답 없음"},
             Case{{true, true, StepTable, StepTable, 2s, true}, "응답 없음 2초", "응답 없음"},
             Case{{true, true, Reading, Reading, none, true}, "마지막 측정값"},
             Case{{true, false, Reading, Reading, none, true}, "마지막 측정값"},
             Case{{true, false, Reading, Reading, 0ms, true}, "마지막 측정값"},
             Case{{true, false, StepTable, Reading, none, true},
                  "전압 설정값 · 전류 마지막 측정값"},
             Case{{true, true, Reading, StepTable, 10ms, true}, "전압 측정값 · 전류 설정값"},
             Case{{false, true, Reading, Reading, 5s, true}, "정격 모름"},
             Case{{false, false, StepTable, StepTable, none, true}, "정격 모름"},
             Case{{true, true, Reading, Reading, 0ms, false}, "마지막 측정값"},
             Case{{true, true, Reading, Reading, 1s, false}, "응답 없음 1초", "응답 없음"},
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

}  // namespace
}  // namespace zps::tests
