// A timer as the windows use them: an interval, and a switch that may be thrown at any time.
#pragma once

#include "controls/handlers.h"

#include <QTimer>

#include <chrono>
#include <functional>

namespace zps {

// Whether a tick waits while another handler of its window is up, or runs inside it.
enum class TickMode : std::uint8_t { WhenFree, AtOnce };

class Timer : public QObject {
  public:
    Timer(const QString& name, std::chrono::milliseconds interval, Handlers& handlers,
          TickMode mode);

    // What a tick does. A tick that had to wait is dropped if the timer has been disabled
    // meanwhile.
    void OnTick(std::function<void()> tick) { Tick = std::move(tick); }

    // Enabling a timer that runs already does not restart it.
    void SetEnabled(bool enabled);
    bool Enabled() const { return Countdown.isActive(); }
    void SetInterval(std::chrono::milliseconds interval);

  private:
    void Elapse();

    QTimer Countdown;
    Handlers& Events;
    TickMode Mode;
    std::function<void()> Tick;
};

}  // namespace zps
