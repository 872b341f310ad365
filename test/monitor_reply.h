// What the test window makes of the bytes that came: plain figures and texts, no window.
#pragma once

#include "source/reply.h"

#include <array>
#include <chrono>
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

// When a reply was judged, and what came of the probe before it.
struct Stamp {
    std::string Clock;  // time of day
    std::size_t Bytes = 0;
    bool Asked = false;                                // there was a probe
    std::optional<std::chrono::milliseconds> After{};  // from the probe to the first byte
};
std::string TextOf(const Stamp& stamp);

// The decoded fields of a data reply, as they are shown.
enum class Field : std::uint8_t { Status, Error, Step, Volt, Ovp, Curr };
inline constexpr std::size_t FieldCount = 6;
struct FieldText {
    std::string Count;
    std::string Scaled;  // the same in volts or amperes; empty where it is none, or not known
};
// While the output is off the counts are tenths, of the ratings and of the over-voltage level,
// whatever the ratings are. What they are while it is on depends on ratings that they don't tell.
std::array<FieldText, FieldCount> DecodeFields(std::span<const std::uint8_t, DataLength> bytes);

}  // namespace zps
