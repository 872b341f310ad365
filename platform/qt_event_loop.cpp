#include "platform/qt_event_loop.h"

#include <QCoreApplication>
#include <QTimer>

#include <chrono>
#include <utility>

namespace zps::platform {

using serial::Clock;

void QtEventLoop::Post(std::function<void()> call) {
    QMetaObject::invokeMethod(&Receiver, std::move(call), Qt::QueuedConnection);
}

void QtEventLoop::RunUntil(const std::function<bool()>& done, Clock::time_point deadline) {
    using namespace std::chrono;
    constexpr milliseconds longest = hours(1);  // the timer counts in an int
    QTimer wake;
    wake.setSingleShot(true);
    wake.setTimerType(Qt::PreciseTimer);
    while (!done()) {
        const auto left = deadline - Clock::now();
        if (left <= Clock::duration::zero()) return;
        // Set anew each time: a nested RunUntil may have used the tick up.
        wake.start(left < longest ? ceil<milliseconds>(left) : longest);
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
}

}  // namespace zps::platform
