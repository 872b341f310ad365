// The time of a window: its tickers tick when no handler of the window is up, or at once.
#pragma once

#include "controls/timer.h"
#include "source/timekeeper.h"

namespace zps {

class WindowTime : public Timekeeper {
  public:
    // `handlers` outlives the tickers.
    explicit WindowTime(Handlers& handlers, TickMode mode = TickMode::WhenFree)
        : Events(handlers), Mode(mode) {}

    serial::Clock::time_point Now() const override { return serial::Clock::now(); }
    std::unique_ptr<Ticker> MakeTicker(const std::string& name,
                                       std::chrono::milliseconds interval) override {
        return std::make_unique<Timer>(QString::fromStdString(name), interval, Events, Mode);
    }

  private:
    Handlers& Events;
    TickMode Mode;
};

}  // namespace zps
