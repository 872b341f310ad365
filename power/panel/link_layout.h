// The link line of the main window: the bytes of the last reply and the counters.
#pragma once

#include "power/panel/power_controls.h"

namespace zps {

QWidget* MakeLinkLine(PowerControls& controls);

}  // namespace zps
