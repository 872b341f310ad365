// Lays out the frame of the step list.
#pragma once

#include "power/power_controls.h"

namespace zps {

// Fills in fraSTEPLIST and everything inside it.
void MakeStepList(PowerControls& controls);

}  // namespace zps
