// The frames that carry a program step, and how its values become bytes.
#pragma once

#include "source/frame.h"

#include <array>
#include <cstdint>

namespace zps {

// The values of a step, in the order in which an upload carries them.
enum class StepValue : std::uint8_t { Volt, Curr, Time, Slope, Ovp };
inline constexpr std::size_t StepValueCount = 5;
using StepBytes = std::array<Bytes, StepValueCount>;

// The bytes are those of the values as they are shown, so that supply and panel agree: whoever
// stores a value rounds it first.

// A voltage in volts or a current in amperes as counts on the wire: in single precision times
// `scale` (counts per unit), halves to even. Throws OverflowError beyond 32 bits.
std::int32_t SetPointCounts(double value, std::int32_t scale);

// The same as the two bytes of a set-point. Throws OverflowError beyond 16 bits.
Bytes SetPointBytes(double value, std::int32_t scale);

// A step time in seconds, with up to five decimals, as five bytes: seconds, milliseconds,
// hundredths of a millisecond. Throws OverflowError where the seconds do not fit 16 bits.
Bytes TimeBytes(double seconds);

// A slope time in seconds, with up to five decimals, as three bytes: milliseconds, hundredths of a
// millisecond. Throws OverflowError where the milliseconds do not fit 16 bits.
Bytes SlopeBytes(double seconds);

// The command of one value; those of voltage and current are filled up with zeros.
Frame ValueFrame(int address, StepValue value, const Bytes& bytes);

// Selects a step and stores one of its values, in one frame.
Frame SelectingValueFrame(int address, int step, StepValue value, const Bytes& bytes);

// Makes the supply go to a step that it holds: 8 bytes.
Frame SelectStepFrame(int address, int step);

// Selects a step and stores all its values, in one frame of 32 bytes.
Frame UploadFrame(int address, int step, const StepBytes& values);

}  // namespace zps
