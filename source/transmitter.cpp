#include "source/transmitter.h"

#include <chrono>
#include <utility>

namespace zps {

namespace {
constexpr std::chrono::milliseconds OutstandingReplyWait{100};
}

void Transmitter::TransmitFrame() {
    AwaitOutstanding();
    Source.RxBusy = true;
    Line.DiscardInput();
    Line.Output(Source.TxFrame);
}

void Transmitter::AwaitOutstanding() {
    if (!Source.RxBusy) return;
    // No reply can be handled during this wait, so nothing can end it early.
    Line.Pause(OutstandingReplyWait, serial::WaitMode::HoldEvents);
    if (Hear) Hear();
    Source.RxBusy = false;
}

void Transmitter::Send(Frame frame, std::int16_t replyFlag) {
    AwaitOutstanding();  // while the frame that was asked with is still in TxFrame
    Source.LayFrame(std::move(frame));
    Source.ReplyFlag = replyFlag;
    TransmitFrame();
}

int Transmitter::SendCommand(int letter, int d1, int d2, int d3, int d4, int d5) {
    Send(SingleCommand(Source.PowerAddr, letter, {d1, d2, d3, d4, d5}), ExpectAck);
    return 0;
}

}  // namespace zps
