// Which controls of the panel may be used in which state.
#pragma once

#include "power/panel/power_parts.h"

namespace zps {

// Enables or disables a control. One that has the focus, itself or in a control inside it, gives it
// to cmdFOCUS first; an entry in error is given up for the value before.
void EnableControl(PowerControls& controls, QWidget& control, bool on);

// The supply is under remote control (true) or local (false).
void SetRemoteControls(PowerParts& parts, bool on);

// The output is off (true) or on (false). cmdOUTPUT stays as it is: the output must always be
// possible to switch off.
void SetOutputControls(PowerParts& parts, bool on);

// How the panel stands before any supply has been identified: as in local, but for the menus.
void DisablePanel(PowerParts& parts);

}  // namespace zps
