// When polls and step starts go out.
#include "power/link/polling.h"
#include "power/run/step_start.h"
#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

struct PollingASupply : testing::Test, ScriptedLink {
    PollingASupply() {
        OnReply = [this](Reply) { Polls.ReplyHandled(); };
        Line->Otherwise([this](const Bytes& block) {
            if (block[1] == code::Dle) Times.push_back(Line->Waited());
            if (!Answers) return Bytes();
            return block[1] == code::Dle ? Bytes(DataLength) : Acknowledged;
        });
    }
    // When polls go out in the next `span`, in ms from now.
    std::string In(std::chrono::milliseconds span) {
        const auto from = Line->Waited();
        Times.clear();
        Time.Pass(span);
        std::string all;
        for (const auto time : Times) all += std::to_string((time - from).count()) + ' ';
        return all;
    }

    bool On = true;
    bool Answers = true;
    std::vector<std::chrono::milliseconds> Times;
    LinkQuality Quality{Time, [this] { return On; }};
    Polling Polls{Source, Sender, Time, Quality, [this] { return On; }};
};

TEST_F(PollingASupply, IsSteadyAndStopsUntilAReplyOrForASecond) {
    Polls.Start();
    Polls.Stop();
    EXPECT_EQ(In(1100ms), "1000 ");
    Polls.Start();
    EXPECT_EQ(In(700ms), "65 230 395 560 ");
    Polls.Stop();
    EXPECT_EQ(In(1200ms), "860 1025 1190 ");  // the last reply came 140 ms before
    Polls.Stop();
    Time.Pass(500ms);
    Polls.ReplyHandled();
    EXPECT_EQ(In(400ms), "165 330 ");
    Answers = false;
    EXPECT_EQ(In(400ms), "95 360 ");  // each waits 0.1 s for the reply before
    Answers = true;
    Polls.Stop();
    EXPECT_EQ(In(700ms), "630 695 ");
    Polls.Start();
    Answers = false;
    EXPECT_EQ(In(1200ms), "160 425 590 755 920 1085 1250 ");
    Answers = true;
    Polls.End();
    EXPECT_EQ(In(10s), "");
    Polls.Poll();
    EXPECT_EQ(In(1s), "165 330 495 660 825 990 ");  // its reply
    On = false;
    EXPECT_EQ(In(10s), "155 ");
    Polls.Start();
    Polls.Stop();
    EXPECT_EQ(In(10s), "");
}

// The answers take 30 ms, and an operator sends something into each of them.
TEST_F(PollingASupply, ACommandThatSweepsTheAnswerToAPollAwayCostsTheLineNoGoodName) {
    Line->Otherwise(
        [this](const Bytes& block) {
            return block[1] == code::Dle ? Bytes(DataLength) : Acknowledged;
        },
        30ms);
    OnReply = [this](Reply result) {
        if (Source.ReplyFlag() == ExpectData) Quality.Answered(Reply::Data, DataLength);
        EXPECT_EQ(result == Reply::Ack, Source.ReplyFlag() == ExpectAck);
        Polls.ReplyHandled();
    };
    Polls.Start();
    for (int click = 0; click < 5; ++click) {
        while (Quality.WholeRun().Of(Fate::Open) == 0) Time.Pass(5ms);
        if (click == 4)
            Polls.End();  // another window takes the port
        else
            Sender.SendCommand(letter::Volt, 1, 2);  // sweeps away what comes while it waits
        Time.Pass(500ms);
    }
    const PollCounts polls = Quality.WholeRun();
    EXPECT_EQ(polls.Of(Fate::Overtaken), 5);
    EXPECT_EQ(polls.Lost(), 0);
    EXPECT_EQ(polls.Asked() - polls.Of(Fate::Open), polls.Of(Fate::Answered) + 5);
}

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
    bool MayBeOn = false;
    StepStart Start{
        Time,
        {[this] { return Note("S"), Starts; }, [this] { Note("?"); }, [this] { return MayBeOn; }}};
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

TEST_F(StartingAStep, WhereTheOutputMayBeOnComesOnlyAfterTheSupplyHasToldThatItIsOff) {
    for (const bool toldOff : {true, false}) {
        MayBeOn = true;
        Start.AfterNextReply();
        EXPECT_EQ(In(1s), "");
        Start.ReplyHandled();
        EXPECT_EQ(In(1s), "?180");
        EXPECT_TRUE(Start.UnderWay());
        MayBeOn = !toldOff;
        Start.ReplyHandled();
        EXPECT_EQ(In(1s), toldOff ? "S200" : "");
        EXPECT_FALSE(Start.UnderWay());
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
