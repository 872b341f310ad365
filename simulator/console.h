// The commands that a person types while zps-simulator runs.
#pragma once

#include "simulator/line.h"

#include <string>
#include <string_view>

namespace zps::simulator {

struct ConsoleAnswer {
    std::string Text;  // what to show, with line ends; may be empty
    bool Quit = false;
};

// Carries out one typed line (HelpText() lists them) on `line`; `link` follows the line when it is
// plugged in again. An empty text does nothing. Throws UsageError for a line that is not
// understood, and nothing has changed then.
ConsoleAnswer RunCommand(std::string_view text, Line& line, PortLink& link);

// One supply for people, one line of text.
std::string DescribeState(const SupplyState& state);

}  // namespace zps::simulator
