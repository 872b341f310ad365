// Lays out the frame of the step list.
#pragma once

#include "power/panel/power_controls.h"

#include <QString>

#include <array>

namespace zps {

// Fills in fraSTEPLIST and everything inside it.
void MakeStepList(PowerControls& controls);

// Shows beside the list that its first row has step `top`.
void ShowStepRange(PowerControls& controls, int top);

// What a screen reader calls a field of one of the five columns, in the row that shows `step`.
QString SpokenName(std::array<EntryField*, RowCount> PowerControls::*column, int step);

}  // namespace zps
