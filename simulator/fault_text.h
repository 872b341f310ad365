// Faults as a person orders them: "drop 0.3,on=V", as an option with "--" in front.
#pragma once

#include "simulator/faults.h"

#include <string>

namespace zps::simulator {

// The rule of the fault with that name; null if there is none.
const FaultRule* FindRule(std::string_view name);

// Reads what follows the name, FIGURE[,NAME=VALUE]...: the figure is the amount, or the rate of a
// kind without one. Such a kind may stand alone, at a rate of 1. Nothing is returned where the
// figure is 0, which switches the fault off. Throws UsageError.
std::optional<Fault> ParseFault(const FaultRule& rule, std::string_view text);

// The text by which the fault is ordered, with its name in front.
std::string FaultText(const Fault& fault);

}  // namespace zps::simulator
