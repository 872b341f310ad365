// How long the output has been on, or was on the last time.
#pragma once

#include "source/timekeeper.h"

#include <chrono>
#include <optional>

namespace zps {

class RunClock {
  public:
    // `time` outlives this.
    explicit RunClock(const Timekeeper& time) : Time(time) {}

    // The output is shown on or off now; what was so already changes nothing.
    void OutputIs(bool on) {
        if (on == Running) return;
        if (on) Start = Time.Now();
        End = Time.Now();
        Running = on;
    }
    // Empty before the first run.
    std::optional<std::chrono::milliseconds> Elapsed() const {
        if (!Start) return std::nullopt;
        const auto until = Running ? Time.Now() : End;
        return std::chrono::duration_cast<std::chrono::milliseconds>(until - *Start);
    }

  private:
    const Timekeeper& Time;
    bool Running = false;
    std::optional<serial::Clock::time_point> Start;
    serial::Clock::time_point End;
};

}  // namespace zps
