// The rule of the receive event, on the scripted line; so this proves the scripted port as well.
#include "tests/support/plain_event_loop.h"
#include "tests/support/scripted_port.h"

#include <gtest/gtest.h>

#include <memory>
#include <stdexcept>

namespace zps::tests {
namespace {

using namespace std::chrono_literals;
using serial::EventKind;
using serial::WaitMode;

class ReceiveEventRule : public testing::Test {
  protected:
    ReceiveEventRule() { Port->SetPortOpen(true); }
    Bytes ReadAll() const {
        Bytes all;
        while (Port->InBufferCount() > 0) all.push_back(Port->Input());
        return all;
    }

    PlainEventLoop Loop;
    std::shared_ptr<ScriptedLine> Line = std::make_shared<ScriptedLine>();
    ScriptedPortMaker Maker{Loop, Line};
    std::unique_ptr<serial::Port> Port = Maker.MakePort();
    int Raised = 0;
};

TEST_F(ReceiveEventRule, AnExchangeIsJudgedOnceAndARetryInsideTheHandlerOnceMore) {
    std::vector<Bytes> replies;
    Line->AnswerInPieces({{{1}, 20ms}, {{6, 7}, 30ms}});
    Line->Answer({1, 21, 22});
    Port->OnReceive(EventKind::InputAndOutput, [&] {
        Port->WaitForInput(3, 100ms, WaitMode::RunEvents);
        replies.push_back(ReadAll());
        if (replies.size() < 3) Port->Output(Bytes{1, 5, 6});
    });
    Port->Output(Bytes{1, 5, 6});
    Loop.RunPosted();
    EXPECT_EQ(replies, (std::vector<Bytes>{{1, 6, 7}, {1, 21, 22}, {}}));
    EXPECT_EQ(Line->Waited(), 130ms);
}

TEST_F(ReceiveEventRule, NotificationsWhileTheHandlerRunsAreOneAfterIt) {
    int depth = 0;
    Port->OnReceive(EventKind::Input, [&] {
        EXPECT_EQ(++depth, 1);
        for (int more = 0; Raised == 0 && more < 3; ++more) {
            Line->Arrive({2});
            Loop.RunPosted();
        }
        ++Raised;
        --depth;
    });
    Port->Output(Bytes{1});  // who wants to hear of bytes only is not told of a block
    Loop.RunPosted();
    EXPECT_EQ(Raised, 0);
    Line->Arrive({1});
    Loop.RunPosted();
    EXPECT_EQ(Raised, 2);
}

TEST_F(ReceiveEventRule, OfAFloodTheBytesThatCameFirstAreKept) {
    Line->Arrive({1, 6, 7});
    for (int lump = 0; lump < 3; ++lump) Line->Arrive(Bytes(100'000, 255));
    EXPECT_EQ(Port->InBufferCount(), 16'384U);
    const Bytes kept = ReadAll();
    EXPECT_EQ(Bytes(kept.begin(), kept.begin() + 4), (Bytes{1, 6, 7, 255}));
    Line->Arrive({2});
    EXPECT_EQ(ReadAll(), Bytes{2});
}

TEST_F(ReceiveEventRule, SurvivesAHandlerThatThrows) {
    Port->OnReceive(EventKind::Input, [&] {
        ++Raised;
        ReadAll();
        Line->Arrive({2});
        throw std::overflow_error("6");
    });
    Line->Arrive({1});
    EXPECT_THROW(Loop.RunPosted(), std::overflow_error);
    EXPECT_THROW(Loop.RunPosted(), std::overflow_error);
    EXPECT_EQ(Raised, 2);
}

TEST_F(ReceiveEventRule, ClosingInsideTheHandlerForgetsWhatWasKept) {
    Port->OnReceive(EventKind::InputAndOutput, [&] {
        ++Raised;
        Port->Output(Bytes{1});
        Line->Arrive({2});
        Loop.RunPosted();
        Port->SetPortOpen(false);
        Port->SetPortOpen(true);
    });
    Line->Arrive({1});
    Loop.RunPosted();
    EXPECT_EQ(Raised, 1);
    Line->Arrive({3});
    Loop.RunPosted();
    EXPECT_EQ(Raised, 2);
}

}  // namespace
}  // namespace zps::tests
