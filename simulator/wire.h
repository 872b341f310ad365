// The bytes of the line and the time they take on it.
#pragma once

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace zps::simulator {

using Bytes = std::vector<std::uint8_t>;
using ByteView = std::span<const std::uint8_t>;

// Every time of the simulation is on this clock and is handed in by the caller.
using Clock = std::chrono::steady_clock;
using Time = Clock::time_point;

inline constexpr std::uint8_t Stx = 2;
inline constexpr std::uint8_t Etx = 3;
inline constexpr std::uint8_t Enq = 5;
inline constexpr std::uint8_t Ack = 6;
inline constexpr std::uint8_t Dle = 16;
inline constexpr std::uint8_t Dc1 = 17;
inline constexpr std::uint8_t Dc3 = 19;
inline constexpr std::uint8_t Nak = 21;
inline constexpr std::uint8_t Esc = 27;

// The low byte of the sum of `bytes`.
inline std::uint8_t SumOf(ByteView bytes) {
    unsigned sum = 0;
    for (const std::uint8_t byte : bytes) sum += byte;
    return static_cast<std::uint8_t>(sum & 0xFFU);
}

// How long `count` bytes occupy the line: 10 bits each at 9600 baud.
inline Clock::duration LineTime(std::size_t count) {
    constexpr std::int64_t baud = 9600;
    return std::chrono::nanoseconds(static_cast<std::int64_t>(count) * 10 * 1'000'000'000 / baud);
}

}  // namespace zps::simulator
