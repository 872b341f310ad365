#include "source/transmitter.h"

#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

struct Transmitting : testing::Test, ScriptedLink {
    const Bytes AutoOn{1, 2, 8, 27, 'G', 1, 0, 0, 0, 0, 0, 3, 0x71};
    int Handled = 0;
    Transmitting() {
        OnReply = [this](Reply) { ++Handled; };
    }
};

TEST_F(Transmitting, SendsAtOnceAndWholeWhereNoReplyIsOutstanding) {
    Source.ReplyFlag = ExpectData;
    Line->Arrive({9, 9});
    EXPECT_EQ(Sender.SendCommand('G', 1), 0);
    EXPECT_EQ(Line->WrittenData(), std::vector<Bytes>{AutoOn});
    EXPECT_EQ(Line->Waited(), 0ms);
    EXPECT_EQ(Port->InBufferCount(), 0U);
    EXPECT_EQ(std::tuple(Source.TxFrame, Source.ReplyFlag, Source.RxBusy),
              std::tuple(AutoOn, ExpectAck, true));
}

TEST_F(Transmitting, WaitsWithItsEventsHeldForAReplyOfTheLastSecondAndThenSweepsItAway) {
    for (const auto& [age, wait] : {std::pair{0ms, 100ms}, {999ms, 100ms}, {1000ms, 0ms}}) {
        Line->ForgetWritten();
        Source.RxBusy = false;
        Line->AnswerInPieces({{Acknowledged, age + 60ms}});
        Sender.SendCommand('G', 1);
        Time.Pass(age);
        EXPECT_EQ(Sender.ReplyInProgress(), wait > 0ms);
        const auto begun = Line->Waited();
        Sender.Send(ControlFrame(1, code::Dle), ExpectData);
        EXPECT_EQ(Line->Waited() - begun, wait);
        EXPECT_EQ(Handled, 0);
        EXPECT_EQ(Port->InBufferCount(), 0U);
        EXPECT_EQ(Line->WrittenData(), (std::vector<Bytes>{AutoOn, {1, 16, 17}}));
        Sender.AwaitOutstanding();
        EXPECT_FALSE(Sender.ReplyInProgress());
        Time.Pass(3s);
        Handled = 0;
    }
}

}  // namespace
}  // namespace zps::tests
