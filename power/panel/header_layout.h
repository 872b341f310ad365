// The head of the main window: what the supply is, how it is reached, and what happened last.
#pragma once

#include "power/link/last_event.h"
#include "power/panel/power_controls.h"

namespace zps {

QWidget* MakeIdentity(PowerControls& controls);

// The line of the last event, with its time.
void ShowEvent(PowerControls& controls, const PanelEvent* event);

}  // namespace zps
