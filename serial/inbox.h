// The bytes that have arrived and were not read. Filled on the device's thread, read on the
// owner's; every call may be made on any thread.
#pragma once

#include "serial/event_loop.h"

#include <condition_variable>
#include <cstddef>
#include <cstdint>
#include <deque>
#include <mutex>
#include <span>
#include <vector>

namespace zps::serial {

class Inbox {
  public:
    static constexpr std::size_t Room = 16'384;

    // What finds no room is lost: the bytes that came first are those of an answer.
    void Put(std::span<const std::uint8_t> bytes);
    std::size_t Count() const;
    // What was in it, oldest first.
    std::vector<std::uint8_t> Clear();
    // The oldest byte; throws std::logic_error if there is none.
    std::uint8_t Take();
    // Sleeps until `count` bytes are here (true) or `deadline` has passed (false).
    bool WaitFor(std::size_t count, Clock::time_point deadline) const;

  private:
    mutable std::mutex Mutex;
    mutable std::condition_variable Arrived;
    std::deque<std::uint8_t> Bytes;
};

}  // namespace zps::serial
