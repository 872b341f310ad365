// The handlers of one window: how they run, and what waits for them.
#pragma once

#include "controls/error_reporter.h"

#include <QObject>

#include <cstdint>
#include <functional>
#include <vector>

namespace zps {

// Whether a timer repeats the handler by itself, or a person or the line started it.
enum class Origin : std::uint8_t { Event, Timer };

// A window's handlers run through here. Handlers of a person's events run at once. Those of timers
// and of the port wait while another handler, or a message box that it opened, is up; each waits as
// one, however often it came, and they run in the order in which they came. Window thread only.
//
// This is where a PortError or OverflowError ends: a box shows it and the program goes on. What is
// connected to a signal or a timer without Run ends the process when it throws, for the toolkit
// can't carry an exception.
class Handlers : public QObject {
  public:
    Handlers(MessageBoxes& boxes, QWidget* window) : Errors(boxes, window) {}

    // At once, inside whatever is up. `timer` is the timer whose tick the handler is, if it is one.
    // Errors of other types pass on.
    void Run(const std::function<void()>& handler, const void* timer = nullptr);
    // At once if nothing is up and nothing waits, else later. `who` tells handlers apart: while one
    // of the same `who` waits, a further one is dropped. It is only compared, except that the tick
    // of a timer (Origin::Timer) passes as `timer` to Run.
    void RunWhenFree(const void* who, Origin origin, std::function<void()> handler);

    // Whether a handler is up.
    bool Busy() const { return Depth > 0; }

    // Lets what waits run while a handler waits for just that: call `wait` inside a handler.
    void Yield(const std::function<void()>& wait);

  private:
    struct Waiting {
        const void* Who;
        Origin From;
        std::function<void()> Handler;
    };

    void RunWaiting();
    void ScheduleWaiting();

    ErrorReporter Errors;
    int Depth = 0;
    std::vector<Waiting> Queue;
};

}  // namespace zps
