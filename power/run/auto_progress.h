// How far an automatic run has come, as the steps that the supply reports tell.
#pragma once

#include "serial/event_loop.h"

#include <chrono>
#include <optional>
#include <vector>

namespace zps {

// The supply tells no cycle: the panel counts how often the sequence begins anew. Window thread
// only.
class AutoProgress {
  public:
    using Time = serial::Clock::time_point;
    using Span = std::chrono::milliseconds;
    struct Stage {
        int Step;  // 0 to 99
        Span Lasts;
    };

    // A run begins. `cycles` is how often it goes through the stages, 0 or less if that is not
    // known.
    void Begin(std::vector<Stage> stages, int cycles, Time now);
    void End() { Stages.clear(); }
    bool Running() const { return !Stages.empty(); }

    // The supply has reported that it is at `step`.
    void Reported(int step, Time now);

    // 1 for the first; empty where it can't be told: two stages in a row look the same, or one may
    // have passed between two reports.
    std::optional<int> Cycle() const;
    int Cycles() const { return CycleCount; }
    // When the run will have gone through all cycles. An estimate: the times are the panel's, and
    // the clock is not the supply's.
    std::optional<Time> EstimatedEnd() const;

  private:
    Span LeftFrom(std::size_t place) const;

    std::vector<Stage> Stages;
    int CycleCount = 0;
    int CycleNow = 1;
    bool Seen = false;       // the first stage has been reported
    bool Countable = false;  // no stage has been missed
    Span Shortest{};
    std::size_t Place = 0;
    Time Started;
    Time Entered;  // the present stage
    Time LastReport;
};

}  // namespace zps
