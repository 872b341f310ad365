// The application that all benchmarks of windows share: a process can have but one.
#pragma once

#include "serial/event_loop.h"

#include <QApplication>

#include <memory>
#include <vector>

namespace zps::bench {

// Notes the longest time that one event has kept the window thread.
class TimedApplication : public QApplication {
  public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;

    serial::Clock::duration Longest{0};
    std::vector<std::shared_ptr<void>> Kept;  // from one benchmark to the next

  private:
    int Depth = 0;
    serial::Clock::time_point Began;
};

// The one that main made, off-screen where QT_QPA_PLATFORM says nothing else.
TimedApplication& Application();

}  // namespace zps::bench
