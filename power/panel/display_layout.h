// The read-outs of the main window.
#pragma once

#include "power/panel/power_controls.h"

namespace zps {

QWidget* MakeReadOuts(PowerControls& controls);

}  // namespace zps
