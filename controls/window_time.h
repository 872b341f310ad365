// The time of a window: its tickers tick when no handler of the window is up.
#pragma once

#include "controls/timer.h"
#include "source/timekeeper.h"

namespace zps {

class WindowTime : public Timekeeper {
  public:
    // `handlers` outlives the tickers.
    explicit WindowTime(Handlers& handlers) : Events(handlers) {}

    serial::Clock::time_point Now() const override { return serial::Clock::now(); }
    std::unique_ptr<Ticker> MakeTicker(const std::string& name,
                                       std::chrono::milliseconds interval) override {
        return std::make_unique<Timer>(QString::fromStdString(name), interval, Events,
                                       TickMode::WhenFree);
    }

  private:
    Handlers& Events;
};

}  // namespace zps
