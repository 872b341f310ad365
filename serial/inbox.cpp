#include "serial/inbox.h"

#include <algorithm>
#include <stdexcept>

namespace zps::serial {

void Inbox::Put(std::span<const std::uint8_t> bytes) {
    {
        const std::lock_guard lock(Mutex);
        const auto taken = bytes.first(std::min(bytes.size(), Room - Bytes.size()));
        Bytes.insert(Bytes.end(), taken.begin(), taken.end());
    }
    Arrived.notify_all();
}

std::size_t Inbox::Count() const {
    const std::lock_guard lock(Mutex);
    return Bytes.size();
}

std::vector<std::uint8_t> Inbox::Clear() {
    const std::lock_guard lock(Mutex);
    std::vector<std::uint8_t> all(Bytes.begin(), Bytes.end());
    Bytes.clear();
    return all;
}

std::uint8_t Inbox::Take() {
    const std::lock_guard lock(Mutex);
    if (Bytes.empty()) throw std::logic_error("no byte to read");
    const auto byte = Bytes.front();
    Bytes.pop_front();
    return byte;
}

bool Inbox::WaitFor(std::size_t count, Clock::time_point deadline) const {
    std::unique_lock lock(Mutex);
    return Arrived.wait_until(lock, deadline, [&] { return Bytes.size() >= count; });
}

}  // namespace zps::serial
