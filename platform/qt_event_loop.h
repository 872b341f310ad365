// The event loop of a window program, as the serial ports know it.
#pragma once

#include "serial/event_loop.h"

#include <QObject>

#include <deque>
#include <functional>
#include <mutex>

namespace zps::platform {

// Make it on the thread that runs Qt's events, after the application object; that thread is the
// owning thread of every port that uses it. Calls still posted when it is destroyed are dropped.
class QtEventLoop : public serial::EventLoop, private QObject {
  public:
    void Post(std::function<void()> call) override;

    // Qt hands its events out in batches (those that are due together); `done` is asked after each
    // batch. A posted call must not throw, nor any other event: Qt can't carry an exception, and
    // the process ends.
    void RunUntil(const std::function<bool()>& done, serial::Clock::time_point deadline) override;

  private:
    void customEvent(QEvent* event) override;

    std::mutex Mutex;
    std::deque<std::function<void()>> Calls;  // one for each event on its way here
};

}  // namespace zps::platform
