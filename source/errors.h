// The error of a value that has no place where it was to go: a byte outside 0..255, a text that is
// no number, a sum that does not fit. It abandons the handler in which it is thrown; the window
// loop reports it.
#pragma once

#include <stdexcept>

namespace zps {

class OverflowError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

}  // namespace zps
