#include "power/run/step_start.h"

#include "tests/support/scripted_time.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

using namespace std::chrono_literals;

struct StartingAStep : testing::Test {
    // What comes in `span`: S for the start and ? for the poll, with their times from now in ms.
    std::string In(std::chrono::milliseconds span) {
        Log.clear();
        From = Line.Waited();
        Time.Pass(span);
        return Log;
    }
    void Note(const char* what) { Log += what + std::to_string((Line.Waited() - From).count()); }

    PlainEventLoop Loop;
    ScriptedLine Line;
    ScriptedTime Time{Line, Loop};
    std::string Log;
    std::chrono::milliseconds From{0};
    bool Starts = true;
    StepStart Start{Time, [this] { return Note("S"), Starts; }, [this] { Note("?"); }};
};

TEST_F(StartingAStep, ComesOnceBehindAReplyOrAtOnceAndItsReplyAsksForTheStatusOnce) {
    for (const bool behindReply : {true, false}) {
        for (const bool starts : {true, false}) {
            Starts = starts;
            EXPECT_FALSE(Start.UnderWay());
            behindReply ? Start.AfterNextReply() : Start.Begin();
            EXPECT_TRUE(Start.UnderWay());
            if (behindReply) {
                EXPECT_EQ(In(5s), "");
                Start.ReplyHandled();
            }
            EXPECT_EQ(In(150ms), "");
            EXPECT_TRUE(Start.UnderWay());
            Start.ReplyHandled();  // of something else: starts nothing anew
            Start.Begin();
            EXPECT_EQ(In(5s), "S50");
            EXPECT_FALSE(Start.UnderWay());
            Start.ReplyHandled();
            Time.Pass(100ms);
            Start.ReplyHandled();
            EXPECT_EQ(In(5s), starts ? "?80" : "");
            Start.ReplyHandled();
            EXPECT_EQ(In(5s), "");
        }
    }
}

TEST_F(StartingAStep, CalledOffInAnyPhaseLeavesNothingBehind) {
    const std::function<void()> phases[]{
        [&] { Start.AfterNextReply(); }, [&] { Start.ReplyHandled(); },
        [&] { EXPECT_EQ(In(1s), "S200"); }, [&] { Start.ReplyHandled(); }};
    for (std::size_t last = 0; last < std::size(phases); ++last) {
        SCOPED_TRACE(last);
        for (std::size_t phase = 0; phase <= last; ++phase) phases[phase]();
        Start.CallOff();
        EXPECT_FALSE(Start.UnderWay());
        for (int reply = 0; reply < 3; ++reply) {
            Start.ReplyHandled();
            EXPECT_EQ(In(1s), "");
        }
    }
}

}  // namespace
}  // namespace zps::tests
