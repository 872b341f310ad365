// The application that all benchmarks of windows share: a process can have but one.
#pragma once

#include "serial/event_loop.h"

#include <QApplication>

namespace zps::bench {

// Notes the longest time that one event has kept the window thread.
class TimedApplication : public QApplication {
  public:
    using QApplication::QApplication;
    bool notify(QObject* receiver, QEvent* event) override;

    serial::Clock::duration Longest{0};

  private:
    int Depth = 0;
    serial::Clock::time_point Began;
};

// Made at the first call, off-screen where QT_QPA_PLATFORM says nothing else; lives to the end of
// the process.
TimedApplication& Application();

}  // namespace zps::bench
