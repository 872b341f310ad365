// Bytes on the line, as the tests write them down.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <numeric>
#include <vector>

namespace zps::tests {

using Bytes = std::vector<std::uint8_t>;

inline Bytes Joined(std::initializer_list<Bytes> parts) {
    Bytes all;
    for (const Bytes& part : parts) all.insert(all.end(), part.begin(), part.end());
    return all;
}

inline Bytes Summed(Bytes bytes) {
    bytes.push_back(static_cast<std::uint8_t>(std::accumulate(bytes.begin(), bytes.end(), 0)));
    return bytes;
}

inline Bytes Control(int address, std::uint8_t code) {
    return Summed({static_cast<std::uint8_t>(address), code});
}

// A frame around `payload`, which begins with the first ESC.
inline Bytes Framed(int address, const Bytes& payload) {
    const auto length = static_cast<std::uint8_t>(payload.size());
    return Summed(Joined({{static_cast<std::uint8_t>(address), 2, length}, payload, {3}}));
}

}  // namespace zps::tests
