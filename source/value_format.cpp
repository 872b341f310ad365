#include "source/value_format.h"

#include <array>
#include <limits>

namespace zps {

namespace {

// One row for each range of the rating. The current keeps three decimals on its smallest range.
struct Range {
    float UpTo;
    float Threshold;
    std::int16_t High;
    std::int16_t VoltLow;
    std::int16_t CurrLow;
    std::int32_t Scale;
};
constexpr std::array Ranges{
    Range{2, 0.2F, 3, 4, 3, 10000},
    Range{20, 2.0F, 2, 3, 3, 1000},
    Range{200, 20.0F, 1, 2, 2, 100},
    Range{std::numeric_limits<float>::infinity(), 200.0F, 0, 1, 1, 10},
};

const Range& RangeOf(float rating) {
    for (const auto& range : Ranges) {
        if (rating <= range.UpTo) return range;
    }
    return Ranges.back();
}

std::int16_t OneMore(std::int16_t decimals) {
    return static_cast<std::int16_t>(decimals + 1);
}

Figure FormatByThreshold(float value, float threshold, std::int16_t high, std::int16_t low,
                         std::int16_t& lastUsed) {
    lastUsed = value >= threshold ? high : low;
    if (lastUsed < 0 || lastUsed > 5) return {};
    return ToFigure(value, lastUsed);
}

}  // namespace

void ValueFormat::SetMaxVolt(float volts) {
    const Range& range = RangeOf(volts);
    MaxVolt = volts;
    MaxOvp = static_cast<float>(static_cast<double>(volts) * 1.09);
    VoltScale = range.Scale;
    VoltDecThreshold = range.Threshold;
    VoltDecHigh = VoltDecimals = range.High;
    VoltDecLow = range.VoltLow;
    VoltDecHighFine = VoltDecimalsFine = OneMore(range.High);
    VoltDecLowFine = OneMore(range.VoltLow);
}

void ValueFormat::SetMaxCurr(float amps) {
    const Range& range = RangeOf(amps);
    MaxCurr = amps;
    CurrScale = range.Scale;
    CurrDecThreshold = range.Threshold;
    CurrDecHigh = CurrDecimals = range.High;
    CurrDecLow = range.CurrLow;
    CurrDecHighFine = CurrDecimalsFine = OneMore(range.High);
    CurrDecLowFine = OneMore(range.CurrLow);
}

Figure ValueFormat::FormatVolt(float value) const {
    return FormatByThreshold(value, VoltDecThreshold, VoltDecHigh, VoltDecLow, VoltDecimals);
}

Figure ValueFormat::FormatCurr(float value) const {
    return FormatByThreshold(value, CurrDecThreshold, CurrDecHigh, CurrDecLow, CurrDecimals);
}

std::string ValueFormat::FormatVoltFine(float value) const {
    return FormatByThreshold(value, VoltDecThreshold, VoltDecHighFine, VoltDecLowFine,
                             VoltDecimalsFine)
        .Text;
}

std::string ValueFormat::FormatCurrFine(float value) const {
    return FormatByThreshold(value, CurrDecThreshold, CurrDecHighFine, CurrDecLowFine,
                             CurrDecimalsFine)
        .Text;
}

Figure FormatSeconds(double seconds) {
    return ToFigure(seconds, 5);
}

}  // namespace zps
