// The frames that carry a program step, and how its texts become bytes.
#pragma once

#include "source/frame.h"

#include <array>
#include <cstdint>
#include <string>
#include <string_view>

namespace zps {

// A voltage in volts or a current in amperes as counts on the wire: the text's leading number as
// single precision times `scale` (counts per unit), halves to even. Throws OverflowError beyond 32
// bits.
std::int32_t SetPointCounts(std::string_view text, std::int32_t scale);

// A step time in seconds: seconds as 16 bits, milliseconds as 16 bits, hundredths of a millisecond.
// The text has five decimals, as FormatSeconds writes it; one that can't be cut at its decimal
// point throws OverflowError.
std::array<int, 5> TimeBytes(std::string_view text);

// The single commands of the fields that are sent without padding.
Frame OvpFrame(int address, std::string_view text, std::int32_t voltScale);
Frame SlopeFrame(int address, std::string_view text);
Frame TimeFrame(int address, std::string_view text);

// Makes the supply go to a step that it holds: 8 bytes.
Frame SelectStepFrame(int address, int step);

// A step as its row shows it.
struct StepTexts {
    std::string Volt;
    std::string Curr;
    std::string Time;
    std::string Slope;
    std::string Ovp;
};

// Selects a step and stores all its values, in one frame of 32 bytes.
Frame UploadFrame(int address, int step, const StepTexts& texts, std::int32_t voltScale,
                  std::int32_t currScale);

}  // namespace zps
