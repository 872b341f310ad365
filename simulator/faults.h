// What goes wrong with the replies on a line.
#pragma once

#include "simulator/wire.h"

#include <random>
#include <vector>

namespace zps::simulator {

// The first four are shares of the replies, 0 to 1.
struct Faults {
    double Drop = 0;                     // the reply is lost
    double Garble = 0;                   // one of its bytes is changed
    double Split = 0;                    // it comes in two pieces with a pause of 30 ms between
    double Duplicate = 0;                // it comes twice
    std::chrono::milliseconds Delay{0};  // every reply leaves this much later
    bool Silent = false;                 // the supplies hear nothing and answer nothing
    bool Refuse = false;                 // they answer every command with NAK and carry none out
};

struct Piece {
    Time LeavesAt;
    Bytes Content;
};

class ReplyFaults {
  public:
    explicit ReplyFaults(std::uint32_t seed) : Random(seed) {}

    // What becomes of a reply whose last byte would be on the line at `due`: the pieces in which it
    // really comes. The same seed and calls give the same faults.
    std::vector<Piece> Apply(const Faults& faults, Bytes reply, Time due);

  private:
    bool Happens(double share);

    // Not the engine of 32 bits: Qt has it too, and g++ 12 for Windows calls the one copy that the
    // linker keeps as if it were still the other, and loses registers.
    std::mt19937_64 Random;
};

}  // namespace zps::simulator
