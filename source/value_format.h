// How many decimals a voltage or a current is shown with, and how many counts it has on the wire.
#pragma once

#include "source/numbers.h"

#include <cstdint>
#include <string>

namespace zps {

// The limits, scales and decimals that follow from a supply's ratings, and the formatters that use
// them. Before any ratings are read everything is zero and every value shows without decimals; the
// scales have a start value of their own when the main window loads.
struct ValueFormat {
    float MaxVolt = 0;  // V
    float MaxCurr = 0;  // A
    float MaxOvp = 0;   // V, the upper bound of an over-voltage entry

    std::int32_t VoltScale = 0;  // counts per volt
    std::int32_t CurrScale = 0;  // counts per ampere

    // A value at or above the threshold has the high count of decimals, one below it the low count.
    float VoltDecThreshold = 0;
    float CurrDecThreshold = 0;
    std::int16_t VoltDecHigh = 0, VoltDecLow = 0, VoltDecHighFine = 0, VoltDecLowFine = 0;
    std::int16_t CurrDecHigh = 0, CurrDecLow = 0, CurrDecHighFine = 0, CurrDecLowFine = 0;

    // The decimals that the last call of each formatter used.
    mutable std::int16_t VoltDecimals = 0, CurrDecimals = 0;
    mutable std::int16_t VoltDecimalsFine = 0, CurrDecimalsFine = 0;

    // Stores a rating in volts or amperes with everything that follows from it.
    void SetMaxVolt(float volts);
    void SetMaxCurr(float amps);

    // `value` in volts or amperes as it is shown; the fine ones, for read-back, have a decimal
    // more. A count of decimals outside 0..5 gives an empty text.
    Figure FormatVolt(float value) const;
    Figure FormatCurr(float value) const;
    std::string FormatVoltFine(float value) const;
    std::string FormatCurrFine(float value) const;
};

// Step time and slope are always shown with five decimals, whatever the model.
Figure FormatSeconds(double seconds);

}  // namespace zps
