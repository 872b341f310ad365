// The frames that carry a program step, and how its texts become bytes.
#pragma once

#include "source/frame.h"

#include <array>
#include <cstdint>
#include <string_view>

namespace zps {

// The values of a step, in the order in which an upload carries them.
enum class StepValue : std::uint8_t { Volt, Curr, Time, Slope, Ovp };
inline constexpr std::size_t StepValueCount = 5;
using StepBytes = std::array<Bytes, StepValueCount>;

// A voltage in volts or a current in amperes as counts on the wire: the text's leading number as
// single precision times `scale` (counts per unit), halves to even. Throws OverflowError beyond 32
// bits.
std::int32_t SetPointCounts(std::string_view text, std::int32_t scale);

// The same as the two bytes of a set-point. Throws OverflowError beyond 16 bits.
Bytes SetPointBytes(std::string_view text, std::int32_t scale);

// A step time in seconds as five bytes: seconds, milliseconds, hundredths of a millisecond. The
// text has five decimals, as FormatSeconds writes it; one that can't be cut at its decimal point
// throws OverflowError.
Bytes TimeBytes(std::string_view text);

// A slope time in seconds as three bytes: milliseconds, hundredths of a millisecond.
Bytes SlopeBytes(std::string_view text);

// The command of one value; those of voltage and current are filled up with zeros.
Frame ValueFrame(int address, StepValue value, const Bytes& bytes);

// Selects a step and stores one of its values, in one frame.
Frame SelectingValueFrame(int address, int step, StepValue value, const Bytes& bytes);

// Makes the supply go to a step that it holds: 8 bytes.
Frame SelectStepFrame(int address, int step);

// Selects a step and stores all its values, in one frame of 32 bytes.
Frame UploadFrame(int address, int step, const StepBytes& values);

}  // namespace zps
