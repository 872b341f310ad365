// A timer as the windows use them: an interval, and a switch that may be thrown at any time.
#pragma once

#include "controls/handlers.h"
#include "source/timekeeper.h"

#include <QTimer>

#include <chrono>
#include <functional>

namespace zps {

// Whether a tick waits while another handler of its window is up, or runs inside it.
enum class TickMode : std::uint8_t { WhenFree, AtOnce };

class Timer : public QObject, public Ticker {
  public:
    Timer(const QString& name, std::chrono::milliseconds interval, Handlers& handlers,
          TickMode mode);

    // What a tick does. A tick that had to wait is dropped if the timer has been disabled
    // meanwhile.
    void OnTick(std::function<void()> tick) override { Tick = std::move(tick); }

    void SetEnabled(bool enabled) override;
    bool Enabled() const override { return Countdown.isActive(); }
    void SetInterval(std::chrono::milliseconds interval);

  private:
    void Elapse();

    QTimer Countdown;
    Handlers& Events;
    TickMode Mode;
    std::function<void()> Tick;
};

}  // namespace zps
