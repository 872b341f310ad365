// The event loop of the thread that owns a port. A port knows it through these two calls only, so
// that it can live in a window program, in a plain program and in a test.
#pragma once

#include <chrono>
#include <functional>

namespace zps::serial {

// Every deadline of the system is on this clock: setting the time of day can't stretch a wait.
using Clock = std::chrono::steady_clock;

class EventLoop {
  public:
    virtual ~EventLoop() = default;

    // Has `call` run once on the owning thread, soon, outside of the present call. May be called on
    // any thread and wakes a sleeping RunUntil.
    virtual void Post(std::function<void()> call) = 0;

    // Runs events (posted calls among them) until `done` returns true or `deadline` has passed, and
    // sleeps while there are none. `done` is asked before the first event and after each one
    // (a loop that hands out events in batches may ask after each batch). What an event throws
    // passes on, unless the loop has a place of its own for it. Owning thread only; may nest.
    virtual void RunUntil(const std::function<bool()>& done, Clock::time_point deadline) = 0;
};

}  // namespace zps::serial
