// Words as a person types them, in the options of zps-simulator and in its commands.
#pragma once

#include <stdexcept>
#include <string>
#include <string_view>

namespace zps::simulator {

// A word that is not understood; `what()` tells which and what was expected.
class UsageError : public std::runtime_error {
  public:
    using std::runtime_error::runtime_error;
};

[[noreturn]] void RefuseWord(std::string_view what, std::string_view text);

// The whole text must be a number, and within the bounds. `what` names it in the UsageError.
double ParseNumber(std::string_view text, double least, double most, std::string_view what);
int ParseWhole(std::string_view text, int least, int most, std::string_view what);

// The shortest text that reads as `value`.
std::string NumberText(double value);

// Takes what stands before `mark` off the front of `text`, with the mark; all of it where there is
// none.
std::string_view TakeUntil(std::string_view& text, char mark);

}  // namespace zps::simulator
