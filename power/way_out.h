// How the program ends: by its menu, or by closing the main window.
#pragma once

#include "power/link/polling.h"
#include "power/panel/power_parts.h"
#include "power/run/output.h"
#include "power/steps/commands.h"
#include "power/steps/table_menu.h"
#include "serial/port.h"

#include <functional>

namespace zps {

// Either way asks first, and gives the supply back to its front panel.
class WayOut {
  public:
    struct Surround {
        const Output& Out;
        Polling& Polls;
        TableMenu& Table;
        serial::Port& Port;
        std::function<void()> EndExchanges;  // nothing is sent by itself any more
        std::function<void()> Closed;        // the main window is gone
    };
    WayOut(PowerParts& parts, Commands& commands, Surround around);

    // The window is to be closed. Whether it may be; all has been ended by then. Not while a
    // question or message is up.
    bool Close();

  private:
    void mnuPROGRAM_END_Click();
    bool MayUnload();
    bool Confirmed(MessageIcon icon);

    PowerParts& Parts;
    Surround Around;
};

}  // namespace zps
