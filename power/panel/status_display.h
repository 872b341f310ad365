// What the captions and lamps say about the supply.
#pragma once

#include "power/link/link_quality.h"
#include "power/panel/functions.h"
#include "power/panel/output_state.h"

#include <cstdint>

namespace zps {

// The supply's functions and mode as a status byte reports them, whether its bits are set or clear.
// The fault and output bits are apart: they end a run and are not only shown.
void ShowStatus(PowerControls& controls, std::uint8_t status);
// Of these only sensing, automatic run and over-current protection.
void ShowFunctions(PowerControls& controls, std::uint8_t status);

// A switch as it was asked for: label and lamp.
void ShowAsked(PowerControls& controls, const Function& function, bool on);
// Marks the label of a switch where the supply reports otherwise than was asked for.
void ShowDifference(PowerControls& controls, const Function& function, bool askedOn, bool differs);

// The output: its switch as it was asked for, its lamp as the supply reports it, the frame around.
void ShowOutputState(PowerControls& controls, OutputState state);

// Who controls the supply: button, labels and lamp together.
enum class Control : std::uint8_t { Local, Remote, Serial };
void ShowControl(PowerControls& controls, Control control);

// The counts of bad data replies. What has never been counted keeps its caption.
void ShowCounts(PowerControls& controls, const LinkQuality& quality);

}  // namespace zps
