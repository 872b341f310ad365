// The event loop of a test without a window system: a queue of calls that sleeps while it is empty.
#pragma once

#include "serial/event_loop.h"

#include <chrono>
#include <condition_variable>
#include <deque>
#include <functional>
#include <mutex>
#include <utility>

namespace zps::tests {

class PlainEventLoop : public serial::EventLoop {
  public:
    void Post(std::function<void()> call) override {
        {
            const std::lock_guard lock(Mutex);
            Calls.push_back(std::move(call));
        }
        Posted.notify_all();
    }

    void RunUntil(const std::function<bool()>& done, serial::Clock::time_point deadline) override {
        while (!done()) {
            std::unique_lock lock(Mutex);
            Posted.wait_until(lock, deadline, [this] { return !Calls.empty(); });
            if (Calls.empty() || serial::Clock::now() >= deadline) return;
            const auto call = std::move(Calls.front());
            Calls.pop_front();
            lock.unlock();
            call();
        }
    }

    // Runs everything posted so far and what that posts, without waiting; gives up after 10 s.
    void RunPosted() {
        const auto none = [this] {
            const std::lock_guard lock(Mutex);
            return Calls.empty();
        };
        RunUntil(none, serial::Clock::now() + std::chrono::seconds(10));
    }

  private:
    std::mutex Mutex;
    std::condition_variable Posted;
    std::deque<std::function<void()>> Calls;
};

}  // namespace zps::tests
