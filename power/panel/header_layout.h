// The head of the main window: what the supply is and what happened last.
#pragma once

#include "power/panel/power_controls.h"

namespace zps {

QWidget* MakeIdentity(PowerControls& controls);

}  // namespace zps
