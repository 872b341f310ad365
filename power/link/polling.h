// The polls of the supply, and the watch that they never die.
#pragma once

#include "power/panel/power_parts.h"
#include "power/run/reply_handler.h"

namespace zps {

class Polling {
  public:
    Polling(PowerParts& parts, const ReplyHandler& replies);

  private:
    void tmrDLE_Timer();
    void tmrStatus_Timer();
    void PollSupply();
    void tmrWatch_Timer();

    PowerParts& Parts;
    const ReplyHandler& Replies;
    Timer tmrWatch;
};

}  // namespace zps
