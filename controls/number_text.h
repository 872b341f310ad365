// Numbers as texts of the screen and of copied tables: the decimal point is "." in every locale.
#pragma once

#include "source/numbers.h"

#include <QString>

namespace zps {

// With exactly so many decimals, halves away from zero. A value in single precision is rounded from
// its own shortest text, so it stays the same text wherever it is shown.
inline QString FixedText(double value, int decimals) {
    return QString::fromStdString(FormatFixed(value, decimals));
}
inline QString FixedText(float value, int decimals) {
    return QString::fromStdString(FormatFixed(value, decimals));
}

}  // namespace zps
