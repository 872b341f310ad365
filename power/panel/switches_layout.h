// The switches of the main window with their lamps and labels.
#pragma once

#include "power/panel/power_controls.h"

namespace zps {

QWidget* MakeSwitches(PowerControls& controls);

}  // namespace zps
