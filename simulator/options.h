// The words of the command line and of the typed commands of zps-simulator.
#pragma once

#include "simulator/faults.h"
#include "simulator/supply.h"

#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace zps::simulator {

// A word that is not understood; `what()` tells which and what was expected.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

struct ProgramOptions {
    std::vector<SupplyOptions> Supplies;  // never empty
    Faults LineFaults;
    int Port = 1;
    bool Help = false;
};

// Reads the words after the program's name. Throws UsageError.
ProgramOptions ParseOptions(std::span<const std::string> words);

// The text of --help.
std::string_view HelpText();

// Numbers as a person types them: the whole text must be one, and within the bounds. `what` names
// the number in the UsageError.
double ParseNumber(std::string_view text, double least, double most, std::string_view what);
int ParseWhole(std::string_view text, int least, int most, std::string_view what);

// Sets one fault from its name (drop, garble, split, duplicate: a rate; delay: milliseconds). False
// if `name` is none of them; throws UsageError where the value is bad.
bool SetFault(Faults& faults, std::string_view name, std::string_view value);

}  // namespace zps::simulator
