// The polls of the supply, and the watch that they never die.
#pragma once

#include "power/link/link_quality.h"
#include "source/source.h"
#include "source/timekeeper.h"
#include "source/transmitter.h"

#include <functional>
#include <memory>

namespace zps {

// Polls steadily while the output is on. Many commands stop the polls and leave it to their answer
// to start them again; one lost answer must not end them, so after a second without a reply the
// watch takes them up.
class Polling {
  public:
    // `outputOn` tells whether the output is believed on. All of them outlive this.
    Polling(SOURCE& source, Transmitter& line, Timekeeper& time, LinkQuality& quality,
            std::function<bool()> outputOn);

    // The command that switches the output on is out.
    void Start();
    // No poll until the next reply has been handled, or a second has passed without one.
    void Stop() { tmrDLE->SetEnabled(false); }
    // No poll by itself any more: another window takes the port, or the program ends.
    void End();
    // A reply, or an event without one, has been handled.
    void ReplyHandled();
    // One poll now.
    void Poll();

  private:
    void Sent();
    void tmrWATCH_Timer();

    SOURCE& Source;
    Transmitter& Sender;
    LinkQuality& Quality;
    std::function<bool()> OutputOn;
    std::unique_ptr<Ticker> tmrDLE;    // the steady poll
    std::unique_ptr<Ticker> tmrWATCH;  // a second since the last reply
};

}  // namespace zps
