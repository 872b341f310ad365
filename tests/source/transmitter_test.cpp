#include "source/transmitter.h"

#include "tests/support/scripted_link.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

struct Transmitting : testing::Test, ScriptedLink {};

TEST_F(Transmitting, WaitsWithItsEventsHeldForAReplyOfTheLastSecondAndThenSweepsItAway) {
    int handled = 0;
    OnReply = [&](Reply) { ++handled; };
    for (const auto& [age, wait] : {std::pair{0ms, 100ms}, {999ms, 100ms}, {1000ms, 0ms}}) {
        Line->ForgetWritten();
        Source.WasHandled();
        Source.Expect(ExpectData);
        Line->AnswerInPieces({{Acknowledged, age + 60ms}});
        Sender.SendCommand('G', 1);
        EXPECT_EQ(Source.ReplyFlag(), ExpectAck);
        Time.Pass(age);
        EXPECT_EQ(Sender.ReplyInProgress(), wait > 0ms);
        const auto begun = Line->Waited();
        Sender.Send(ControlFrame(1, code::Dle), ExpectData);
        EXPECT_EQ(Line->Waited() - begun, wait);
        EXPECT_EQ(handled, 0);
        EXPECT_EQ(Port->InBufferCount(), 0U);
        EXPECT_EQ(Line->WrittenData(),
                  (std::vector<Bytes>{SingleCommand(1, 'G', {1}).Data, {1, 16, 17}}));
        Sender.AwaitOutstanding();
        EXPECT_FALSE(Sender.ReplyInProgress());
        Time.Pass(3s);
        handled = 0;
    }
}

}  // namespace
}  // namespace zps::tests
