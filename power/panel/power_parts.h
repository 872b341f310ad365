// What the routines of the main window work on. POWER owns all of it; each routine is handed it.
#pragma once

#include "controls/handlers.h"
#include "controls/message_boxes.h"
#include "controls/timer.h"
#include "power/link/held_steps.h"
#include "power/panel/power_controls.h"
#include "power/panel/power_state.h"
#include "source/source.h"
#include "source/transmitter.h"

namespace zps {

struct PowerTimers {
    explicit PowerTimers(Handlers& handlers);
    // Nothing is polled or started by itself from now on.
    void StopAll();

    Timer tmrDLE;     // steady poll while the output is on
    Timer tmrStatus;  // one-shot poll
    Timer tmrSTART;   // one-shot start of the top step
};

struct PowerParts {
    SOURCE& Source;
    PowerState& State;
    PowerControls& Controls;
    PowerTimers& Timers;
    Transmitter& Line;
    HeldSteps& Held;
    Handlers& Events;
    MessageBoxes& Boxes;
    serial::EventLoop& Loop;
    QWidget& Window;
};

}  // namespace zps
