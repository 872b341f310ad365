// Which controls of the panel may be used in which state.
#pragma once

#include "power/panel/power_controls.h"

#include <array>
#include <optional>

namespace zps {

// Everything that decides it.
struct PanelState {
    bool Identified = false;    // a supply has been; before that only the menus can be used
    bool Remote = false;        // the supply is under remote control
    bool LeavesRemote = false;  // the remote switch goes to local next
    bool OutputOn = false;
    bool AutoOn = false;
    bool Locked = false;                // a row is being edited
    std::optional<int> EditedRow;       // that row with the output off
    int SelectedRow = -1;               // the row that shows the selected step, if any does
    std::array<bool, RowCount> Held{};  // whether the supply holds the row's step
    bool OvpUnderLoad = false;          // with the output on: the selected step's O.V.P. too
};

struct RowUse {
    bool Step;       // its button
    bool SetPoints;  // voltage and current
    bool Times;      // time and slope
    bool Ovp;

    bool operator==(const RowUse&) const = default;
};

struct PanelUse {
    bool Output;        // the button that switches it
    bool Functions;     // the other switches but the remote one, and the boxes of the sequence
    bool StepList;      // as a whole
    bool Windows;       // the menus of the settings and test window
    bool Clear;         // the menu that clears the log
    bool Scrolling;     // of the step list
    bool FunctionKeys;  // the keys of the switches: those of the functions, remote, output
    bool RemoteKey;
    bool OutputKey;
    std::array<RowUse, RowCount> Rows;
};

// The one rule. The output can always be switched off and remote control always be left, by button
// and by key; a key does nothing else that the pointer can't reach while a row is being edited.
PanelUse UsableIn(const PanelState& state);

// Enables and disables the controls so. What has the focus and loses its use gives it to cmdFOCUS.
void Enable(PowerControls& controls, const PanelUse& use);

}  // namespace zps
