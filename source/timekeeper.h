// Time as what decides gets it: a clock and tickers, handed in, so that a test can let a day pass
// in a moment. Window thread only.
#pragma once

#include "serial/event_loop.h"

#include <chrono>
#include <functional>
#include <memory>
#include <string>

namespace zps {

// Ticks at a fixed interval while it is enabled.
class Ticker {
  public:
    virtual ~Ticker() = default;
    virtual void OnTick(std::function<void()> tick) = 0;
    // Enabling one that runs already does not restart it.
    virtual void SetEnabled(bool enabled) = 0;
    virtual bool Enabled() const = 0;
    // The next tick is a whole interval from now.
    void Restart() {
        SetEnabled(false);
        SetEnabled(true);
    }
};

class Timekeeper {
  public:
    virtual ~Timekeeper() = default;
    virtual serial::Clock::time_point Now() const = 0;
    // A disabled ticker. `name` is for people who look for it.
    virtual std::unique_ptr<Ticker> MakeTicker(const std::string& name,
                                               std::chrono::milliseconds interval) = 0;
};

}  // namespace zps
