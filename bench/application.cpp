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
    static int count = 1;
    static char name[] = "zps_bench";
    static char* names[] = {name, nullptr};
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    static TimedApplication application(count, names);
    return application;
}

}  // namespace zps::bench
