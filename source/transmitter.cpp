#include "source/transmitter.h"

#include <chrono>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto OutstandingReplyWait = 100ms;
constexpr auto LatestReply = 1s;
}  // namespace

bool Transmitter::ReplyInProgress() const {
    return Source.RxBusy() && Now() - SentAt < LatestReply;
}

void Transmitter::TransmitFrame() {
    AwaitOutstanding();
    PutOut();
}

void Transmitter::PutOut() {
    Source.WentOut();
    SentAt = Now();
    Port.DiscardInput();
    Port.Output(Source.TxFrame());
    Told();
}

void Transmitter::AwaitOutstanding() {
    // No reply can be handled during this wait, so nothing can end it early.
    if (ReplyInProgress()) Port.Pause(OutstandingReplyWait, serial::WaitMode::HoldEvents);
    Hear();
    Source.WasHandled();
}

void Transmitter::Send(Frame frame, std::int16_t replyFlag) {
    AwaitOutstanding();
    Source.LayFrame(std::move(frame));
    Source.Expect(replyFlag);
    PutOut();
}

int Transmitter::SendCommand(int commandLetter, int d1, int d2, int d3, int d4, int d5) {
    Send(SingleCommand(Source.PowerAddr, commandLetter, {d1, d2, d3, d4, d5}), ExpectAck);
    return 0;
}

}  // namespace zps
