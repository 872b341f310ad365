// Where an automatic run stands in its sequence of steps.
#pragma once

#include "simulator/wire.h"

#include <cstddef>

namespace zps::simulator {

class AutoRun {
  public:
    bool Running() const { return IsRunning; }
    // The step that runs now; only while running.
    int Step() const { return Sequence[Position]; }
    int CyclesDone() const { return Cycles; }
    Time StepEnds() const { return Ends; }

    // Starts at the first entry of `sequence`, which must not be empty.
    void Begin(const Bytes& sequence);
    void Stop() { IsRunning = false; }
    // The present step lasts until `at`.
    void EndStepAt(Time at) { Ends = at; }
    // Moves on to the next entry. After the last one of the sequence it begins again, or stops once
    // `cycles` cycles are complete; 0 counts as 1.
    void Next(int cycles);

  private:
    bool IsRunning = false;
    Bytes Sequence;
    std::size_t Position = 0;
    int Cycles = 0;
    Time Ends{};
};

}  // namespace zps::simulator
