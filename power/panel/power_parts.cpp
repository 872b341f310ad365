#include "power/panel/power_parts.h"

#include <chrono>

namespace zps {

using namespace std::chrono_literals;

PowerTimers::PowerTimers(Handlers& handlers)
    : tmrDLE(QStringLiteral("tmrDLE"), 165ms, handlers, TickMode::WhenFree),
      tmrStatus(QStringLiteral("tmrStatus"), 180ms, handlers, TickMode::WhenFree),
      tmrSTART(QStringLiteral("tmrSTART"), 200ms, handlers, TickMode::WhenFree) {}

void PowerTimers::StopAll() {
    for (Timer* timer : {&tmrDLE, &tmrStatus, &tmrSTART}) timer->SetEnabled(false);
}

}  // namespace zps
