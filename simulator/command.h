// The commands inside a frame: each is an ESC, a letter and as many data bytes as the letter takes.
#pragma once

#include "simulator/wire.h"

#include <optional>
#include <vector>

namespace zps::simulator {

inline constexpr int StepCount = 100;  // steps of the memory, numbered from 0

struct Command {
    char Letter;
    // The data without padding. For "B" the step numbers in order, without the end mark.
    Bytes Data;
};

// Reads the bytes between the length byte and the ETX. Commands are told apart by their counts of
// data bytes, not by looking for ESC, so data may hold any value; zeros after the last command are
// padding. Nothing is returned where a letter is unknown, data is missing or out of its range, or
// something else than zeros follows: then no command of the frame may be carried out.
std::optional<std::vector<Command>> ParseCommands(ByteView payload);

}  // namespace zps::simulator
