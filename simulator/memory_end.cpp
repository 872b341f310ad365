#include "simulator/memory_end.h"

#include <algorithm>
#include <utility>

namespace zps::simulator {

bool MemoryEnd::Connect(std::function<void(ByteView)> received) {
    const std::lock_guard lock(Guard);
    if (!IsOpen || Received) return false;
    Received = std::move(received);
    return true;
}

void MemoryEnd::Disconnect() {
    const std::lock_guard lock(Guard);
    Received = nullptr;
}

bool MemoryEnd::IsConnected() const {
    const std::lock_guard lock(Guard);
    return Received != nullptr;
}

void MemoryEnd::Send(ByteView bytes) {
    {
        const std::lock_guard lock(Guard);
        if (Received) Sent.insert(Sent.end(), bytes.begin(), bytes.end());
    }
    Wake();
}

void MemoryEnd::Open() {
    const std::lock_guard lock(Guard);
    IsOpen = true;
}

void MemoryEnd::Close() {
    const std::lock_guard lock(Guard);
    IsOpen = false;
    Received = nullptr;
    Sent.clear();
}

std::string MemoryEnd::Name() const {
    const std::lock_guard lock(Guard);
    return IsOpen ? DeviceName : std::string();
}

void MemoryEnd::Wait(Time until) {
    std::unique_lock lock(Guard);
    // Not every system can wait until the end of time.
    Woken.wait_until(lock, std::min(until, Clock::now() + std::chrono::minutes(1)),
                     [this] { return IsWoken; });
    IsWoken = false;
}

void MemoryEnd::Wake() {
    {
        const std::lock_guard lock(Guard);
        IsWoken = true;
    }
    Woken.notify_one();
}

std::size_t MemoryEnd::Read(std::span<std::uint8_t> room) {
    const std::lock_guard lock(Guard);
    const auto count = std::min(room.size(), Sent.size());
    const auto end = Sent.begin() + static_cast<std::ptrdiff_t>(count);
    std::copy(Sent.begin(), end, room.begin());
    Sent.erase(Sent.begin(), end);
    return count;
}

void MemoryEnd::Write(ByteView bytes) {
    const std::lock_guard lock(Guard);
    if (Received) Received(bytes);
}

}  // namespace zps::simulator
