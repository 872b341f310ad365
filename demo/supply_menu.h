// What a person can do to the simulated supply: make it trip, load it, slow it, silence it.
#pragma once

#include "simulator/line.h"

class QMenuBar;

namespace zps::demo {

// Adds the menu to `bar`, for the supply with `address` on `line`, which outlives the bar.
void AddSupplyMenu(QMenuBar& bar, simulator::Line& line, int address);

}  // namespace zps::demo
