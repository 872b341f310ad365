// The words of the command line and of the typed commands of zps-simulator.
#pragma once

#include "simulator/faults.h"
#include "simulator/supply.h"

#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace zps::simulator {

struct ProgramOptions {
    std::vector<SupplyOptions> Supplies;  // never empty
    std::vector<Fault> LineFaults;
    std::optional<std::uint32_t> Seed;
    int Port = 1;
    bool Help = false;
};

// Reads the words after the program's name. Throws UsageError.
ProgramOptions ParseOptions(std::span<const std::string> words);

// The text of --help.
std::string_view HelpText();

// The line that starts the program again with the same words, supplies and faults.
std::string RepeatText(std::span<const std::string> words, std::uint32_t seed);

}  // namespace zps::simulator
