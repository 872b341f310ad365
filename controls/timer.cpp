#include "controls/timer.h"

namespace zps {

Timer::Timer(const QString& name, std::chrono::milliseconds interval, Handlers& handlers,
             TickMode mode)
    : Events(handlers), Mode(mode) {
    setObjectName(name);
    Countdown.setTimerType(Qt::PreciseTimer);
    Countdown.setInterval(interval);
    connect(&Countdown, &QTimer::timeout, this, [this] { Elapse(); });
}

void Timer::SetEnabled(bool enabled) {
    if (enabled == Enabled()) return;
    if (enabled) {
        Countdown.start();
    } else {
        Countdown.stop();
    }
}

void Timer::SetInterval(std::chrono::milliseconds interval) {
    Countdown.setInterval(interval);
}

void Timer::Elapse() {
    const auto tick = [this] {
        if (Enabled() && Tick) Tick();
    };
    if (Mode == TickMode::AtOnce) {
        Events.Run(tick, this);
    } else {
        Events.RunWhenFree(this, Origin::Timer, tick);
    }
}

}  // namespace zps
