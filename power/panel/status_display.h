// What the captions and lamps say about the supply.
#pragma once

#include "power/panel/power_controls.h"

#include <cstdint>

namespace zps {

// Shows the bits of a status byte, whether set or clear; the fault and output bits apart, which end
// a run and are not only shown.
void ShowStatus(PowerControls& controls, std::uint8_t status);

// Only the captions and lamps of sensing, automatic run and over-current protection.
void ShowFunctions(PowerControls& controls, std::uint8_t status);

// Shows the output as on or off.
void ShowOutput(PowerControls& controls, bool on);

// Raises a counter that is kept in the label's caption; a caption that is no number counts as 0.
void RaiseCounter(QLabel& counter);

}  // namespace zps
