// The error of a value that has no place where it was to go: a byte outside 0..255, a text that is
// no number, a sum that does not fit. It abandons the handler in which it is thrown;
// whoever runs the window's handlers reports it.
#pragma once

#include <cstdint>
#include <stdexcept>
#include <string>

namespace zps {

enum class Overflow : std::uint8_t {
    NoByte,      // outside 0..255
    NoNumber,    // the text is none
    OutOfRange,  // outside Low..High
    TooLarge,    // beyond what can be sent
    NoStep,      // a step beyond the table
};

class OverflowError : public std::runtime_error {
  public:
    // `value` is what had no place, as text. `what()` is for developers.
    OverflowError(Overflow kind, const std::string& value, int low = 0, int high = 0)
        : std::runtime_error("no place for the value '" + value + "'"),
          Kind(kind),
          Value(value),
          Low(low),
          High(high) {}

    Overflow Kind;
    std::string Value;
    int Low;  // the bounds of Overflow::OutOfRange
    int High;
};

}  // namespace zps
