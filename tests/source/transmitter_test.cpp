#include "source/transmitter.h"

#include "source/errors.h"
#include "tests/support/plain_event_loop.h"
#include "tests/support/scripted_port.h"

#include <gtest/gtest.h>

namespace zps {
namespace {

using namespace std::chrono_literals;

class Transmitting : public testing::Test {
  protected:
    Transmitting() {
        Port->SetPortOpen(true);
        Source.PowerAddr = 1;
        Source.ReplyFlag = ExpectData;
    }

    const Bytes AutoOn{1, 2, 8, 27, 'G', 1, 0, 0, 0, 0, 0, 3, 0x71};
    tests::PlainEventLoop Loop;
    std::shared_ptr<tests::ScriptedLine> Line = std::make_shared<tests::ScriptedLine>();
    std::unique_ptr<serial::Port> Port = tests::ScriptedPortMaker(Loop, Line).MakePort();
    SOURCE Source;
    Transmitter Sender{Source, *Port};
};

TEST_F(Transmitting, SendsAtOnceAndWholeWhereNoReplyIsOutstanding) {
    Line->Arrive({9, 9});
    EXPECT_EQ(Sender.SendCommand('G', 1), 0);
    EXPECT_EQ(Line->WrittenData(), std::vector<Bytes>{AutoOn});
    EXPECT_EQ(Line->Waited(), 0ms);
    EXPECT_EQ(Port->InBufferCount(), 0U);
    EXPECT_EQ(std::tuple(Source.TxFrame, Source.ReplyFlag, Source.RxBusy),
              std::tuple(AutoOn, ExpectAck, true));
}

TEST_F(Transmitting, WaitsWithItsEventsHeldForAnOutstandingReplyAndThenSweepsItAway) {
    bool handled = false;
    Port->OnReceive(serial::EventKind::Input, [&] { handled = true; });
    Line->AnswerInPieces({{{1, 6, 7}, 60ms}});
    Sender.SendCommand('G', 1);
    Sender.Send(ControlFrame(1, code::Dle), ExpectData);
    EXPECT_FALSE(handled);
    EXPECT_EQ(Line->Waited(), 100ms);
    EXPECT_EQ(Port->InBufferCount(), 0U);
    EXPECT_EQ(Line->WrittenData(), (std::vector<Bytes>{AutoOn, {1, 16, 17}}));
}

}  // namespace
}  // namespace zps
