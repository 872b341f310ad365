// The exchange on the line: the frame last laid, the reply that it asks for, and what became of it.
#pragma once

#include "source/frame.h"
#include "source/reply.h"

#include <cstdint>
#include <utility>

namespace zps {

// The windows take turns at the port and go on where the one before has left it, so they share one
// exchange. Each of them tells it what happens; nobody sets its fields.
class Exchange {
  public:
    // The frame last laid, with its length and sum byte.
    const Bytes& TxFrame() const { return Asked.Data; }
    std::uint8_t FrameLen() const { return Asked.Length; }
    std::uint8_t FrameSum() const { return Asked.Sum; }
    // What that frame asks for.
    const Request& LastRequest() const { return Asked.Asks; }
    // The kind of reply expected: ExpectAck or ExpectData.
    std::int16_t ReplyFlag() const { return Expected; }
    // A frame is out and its reply not yet handled.
    bool RxBusy() const { return Busy; }
    // The last reply and its judgement.
    const Bytes& RxFrame() const { return Heard; }
    Reply RxResult() const { return Judged; }
    // How often a probe has been sent again: 0 to 3.
    std::int16_t RetryCount() const { return Retries; }

    void LayFrame(Frame frame) { Asked = std::move(frame); }
    void Expect(std::int16_t replyFlag) { Expected = replyFlag; }
    void WentOut() { Busy = true; }
    void WasJudged(Bytes reply, Reply result) {
        Heard = std::move(reply);
        Judged = result;
    }
    void WillRetry() { ++Retries; }
    // The reply has been handled, or is not waited for any longer.
    void WasHandled() { Busy = false; }
    // Nothing is asked any more: bytes that come now are taken for an acknowledgement.
    void Settle() {
        Retries = 0;
        Expected = ExpectAck;
    }
    // Whatever was judged is not true of the supply that is chosen now.
    void ForgetResult() { Judged = Reply::None; }

  private:
    Frame Asked;
    Bytes Heard;
    Reply Judged = Reply::None;
    std::int16_t Expected = ExpectAck;
    std::int16_t Retries = 0;
    bool Busy = false;
};

}  // namespace zps
