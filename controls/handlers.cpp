#include "controls/handlers.h"

#include <QMetaObject>

#include <algorithm>
#include <utility>

namespace zps {

void Handlers::Run(const std::function<void()>& handler, const void* timer) {
    ++Depth;
    Errors.Run(timer, handler);
    --Depth;
    if (!Busy()) ScheduleWaiting();
}

void Handlers::RunWhenFree(const void* who, Origin origin, std::function<void()> handler) {
    if (!Busy() && Queue.empty()) {
        Run(handler, origin == Origin::Timer ? who : nullptr);
        return;
    }
    const bool waits = std::any_of(Queue.begin(), Queue.end(),
                                   [who](const Waiting& one) { return one.Who == who; });
    if (!waits) Queue.push_back({who, origin, std::move(handler)});
}

void Handlers::Yield(const std::function<void()>& wait) {
    const int depth = std::exchange(Depth, 0);
    ScheduleWaiting();
    wait();
    Depth = depth;
}

void Handlers::ScheduleWaiting() {
    if (Queue.empty()) return;
    QMetaObject::invokeMethod(
        this, [this] { RunWaiting(); }, Qt::QueuedConnection);
}

void Handlers::RunWaiting() {
    if (Busy() || Queue.empty()) return;
    const Waiting next = std::move(Queue.front());
    Queue.erase(Queue.begin());
    Run(next.Handler, next.From == Origin::Timer ? next.Who : nullptr);
}

}  // namespace zps
