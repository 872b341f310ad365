// What the test window makes of the bytes that came: plain figures and texts, no window.
#pragma once

#include "source/reply.h"

#include <array>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

namespace zps {

enum class Verdict : std::uint8_t { Nothing, Fragment, GoodEnq, BadEnq, GoodDle, BadDle };

// Judges what came in one reply window from the supply at `address`; addresses wrap in check bytes.
Verdict JudgeMonitorReply(std::span<const std::uint8_t> bytes, int address);

bool IsGood(Verdict verdict);
const char* TextOf(Verdict verdict);

// The three bytes that are shown as the header: they are counted from the end, so a longer burst
// shows others than its first. None for fewer than three bytes.
std::optional<std::array<std::uint8_t, 3>> ShownHeader(std::span<const std::uint8_t> bytes);

// The meaning of an error code, or the code itself as a number.
std::string ErrorText(std::uint8_t errorCode);

}  // namespace zps
