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

TEST_F(ReceiveEventRule, NotificationsWhileTheHandlerRunsAreOneAfterItAlsoIfItThrows) {
    for (const bool throws : {false, true}) {
        int raised = 0;
        int depth = 0;
        Port->OnReceive(EventKind::Input, [&] {
            EXPECT_EQ(++depth, 1);
            for (int more = 0; raised == 0 && more < 3; ++more) {
                Line->Arrive({2});
                Loop.RunPosted();
            }
            --depth;
            if (++raised == 1 && throws) throw std::overflow_error("6");
        });
        Port->Output(Bytes{1});  // who wants to hear of bytes only is not told of a block
        Loop.RunPosted();
        EXPECT_EQ(raised, 0);
        Line->Arrive({1});
        if (throws) {
            EXPECT_THROW(Loop.RunPosted(), std::overflow_error);
        }
        Loop.RunPosted();
        EXPECT_EQ(raised, 2);
        ReadAll();
    }
}

TEST_F(ReceiveEventRule, OfAFloodTheBytesThatCameFirstAreKept) {
    Line->Arrive({1, 6, 7});
    for (int lump = 0; lump < 3; ++lump) Line->Arrive(Bytes(100'000, 255));
    EXPECT_EQ(Port->InBufferCount(), 16'384U);
    EXPECT_EQ(Port->Input() + Port->Input() + Port->Input(), 14);
    ReadAll();
    Line->Arrive({2});
    EXPECT_EQ(ReadAll(), Bytes{2});
}

TEST_F(ReceiveEventRule, ClosingInsideTheHandlerForgetsWhatWasKept) {
    int raised = 0;
    Port->OnReceive(EventKind::InputAndOutput, [&] {
        ++raised;
        Port->Output(Bytes{1});
        Line->Arrive({2});
        Loop.RunPosted();
        Port->SetPortOpen(false);
        Port->SetPortOpen(true);
    });
    for (const int times : {1, 2}) {
        Line->Arrive({1});
        Loop.RunPosted();
        EXPECT_EQ(raised, times);
    }
}

}  // namespace
}  // namespace zps::tests
