// The answer to a frame whose fate must be known.
#pragma once

#include "source/source.h"
#include "source/timekeeper.h"
#include "source/transmitter.h"

#include <functional>
#include <memory>

namespace zps {

// Sees to it that the answer is judged once, whatever happens next: by the receive event, before a
// further frame would sweep it away, or as missing when it has not come within a second. Awaits one
// at a time, which is enough: a frame that follows ends the waiting for the one before.
class AwaitedAnswer {
  public:
    using Judge = std::function<void(Reply result)>;

    // `port` is the port of `line`; all of them outlive this.
    AwaitedAnswer(const SOURCE& source, serial::Port& port, Transmitter& line, Timekeeper& time);

    // `judge` is told of the answer to the frame that has just gone out, which asked for an
    // acknowledgement; of Reply::None where none has come.
    void Await(Judge judge);
    bool Awaited() const { return Waiting != nullptr; }
    // Nobody wants to know any more.
    void Forget();

    // The receive event has judged the reply to the last frame. Without a reply the answer is still
    // awaited: one that is late may still come.
    void Heard(Reply result);

  private:
    void HearOutstanding();
    void tmrANSWER_Timer();
    void Tell(Reply result);

    const SOURCE& Source;
    serial::Port& Port;
    std::unique_ptr<Ticker> tmrANSWER;
    Judge Waiting;
};

}  // namespace zps
