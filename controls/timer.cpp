#include "controls/timer.h"

namespace zps {

Timer::Timer(const QString& name, std::chrono::milliseconds interval, Handlers& handlers,
             TickMode mode)
    : Window(handlers), Mode(mode) {
    setObjectName(name);
    Clock.setTimerType(Qt::PreciseTimer);
    Clock.setInterval(interval);
    connect(&Clock, &QTimer::timeout, this, [this] { Elapse(); });
}

void Timer::SetEnabled(bool enabled) {
    if (enabled == Enabled()) return;
    if (enabled) {
        Clock.start();
    } else {
        Clock.stop();
    }
}

void Timer::SetInterval(std::chrono::milliseconds interval) {
    Clock.setInterval(interval);
}

void Timer::Elapse() {
    const auto tick = [this] {
        if (Enabled() && Tick) Tick();
    };
    if (Mode == TickMode::AtOnce) {
        Window.Run(tick, this);
    } else {
        Window.RunWhenFree(this, Origin::Timer, tick);
    }
}

}  // namespace zps
