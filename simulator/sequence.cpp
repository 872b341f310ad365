#include "simulator/sequence.h"

namespace zps::simulator {

void AutoRun::Begin(const Bytes& sequence) {
    Sequence = sequence;
    Position = 0;
    Cycles = 0;
    IsRunning = true;
}

void AutoRun::Next(int cycles) {
    if (++Position < Sequence.size()) return;
    Position = 0;
    if (++Cycles >= cycles) IsRunning = false;
}

}  // namespace zps::simulator
