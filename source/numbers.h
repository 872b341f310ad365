// Reading and writing of numbers, the same everywhere: the decimal point is always ".".
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace zps {

// The number that `text` begins with. Blanks, tabs and line feeds are skipped wherever they stand;
// then an optional sign, digits with at most one ".", and an optional exponent. The rest is
// ignored, no number is 0, and a number too large for a double is an infinity.
//   "1 2.5 V" is 12.5, "1e2x" is 100, "12e" is 12, "-" is 0
double LeadingNumber(std::string_view text);

// The number that `text` is as a whole, blanks aside; none where anything else stands in it.
// Written as LeadingNumber reads it: "1 000.5" and "1e2" are numbers, "1,5", "12 V" and "" are
// none.
std::optional<double> WholeNumber(std::string_view text);

// The whole of `text` as an integer, halves to even. Throws OverflowError where it is no number or
// lies outside `low`..`high`.
int StrictInteger(std::string_view text, int low, int high);

// A number as it is shown: rounded, and the text of just that number.
struct Figure {
    double Value = 0;  // the double nearest to the text, as long as that has up to 15 digits
    std::string Text;
};

// `value` with exactly `decimals` decimals and at least one integer digit. Rounded from the
// value's shortest decimal text, halves away from zero: 2.675 with two decimals is "2.68".
Figure ToFigure(double value, int decimals);
Figure ToFigure(float value, int decimals);
// Its text alone.
std::string FormatFixed(double value, int decimals);
std::string FormatFixed(float value, int decimals);

// The shortest text that reads back as the same single-precision value: 163.5 is "163.5".
std::string ShortestText(float value);

// `value` in single precision; one too large for it is an infinity.
float ToSingle(double value);

// `value` as a byte. Throws OverflowError outside 0..255.
std::uint8_t ToByte(std::int64_t value);

// The nearest integer, halves to even. Throws OverflowError where it does not fit 32 bits.
std::int32_t RoundHalfEven(double value);

// A step number as it stands on a step button: at least two digits, "07".
std::string FormatStep(int step);

}  // namespace zps
