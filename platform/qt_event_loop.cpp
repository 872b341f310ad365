#include "platform/qt_event_loop.h"

#include <QCoreApplication>
#include <QEvent>
#include <QTimer>

#include <chrono>
#include <utility>

namespace zps::platform {

using serial::Clock;

void QtEventLoop::Post(std::function<void()> call) {
    // The event is posted under the lock, so that the owning thread has the lock's word for it (and
    // the thread sanitizer sees) that this thread has finished with what it takes over.
    const std::lock_guard lock(Mutex);
    Calls.push_back(std::move(call));
    QCoreApplication::postEvent(this, new QEvent(QEvent::User));
}

void QtEventLoop::customEvent(QEvent*) {
    std::unique_lock lock(Mutex);
    const auto call = std::move(Calls.front());
    Calls.pop_front();
    lock.unlock();
    call();
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
