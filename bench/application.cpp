#include "bench/application.h"

#include <algorithm>

namespace zps::bench {

using serial::Clock;

bool TimedApplication::notify(QObject* receiver, QEvent* event) {
    if (Depth++ == 0) Began = Clock::now();
    const bool done = QApplication::notify(receiver, event);
    if (--Depth == 0) Longest = std::max(Longest, Clock::now() - Began);
    return done;
}

TimedApplication& Application() {
    return static_cast<TimedApplication&>(*QCoreApplication::instance());
}

}  // namespace zps::bench
