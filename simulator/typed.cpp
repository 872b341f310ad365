#include "simulator/typed.h"

#include <algorithm>
#include <array>
#include <charconv>

namespace zps::simulator {

namespace {

std::string BoundsText(std::string_view what, double least, double most) {
    return std::string(what) + " (" + NumberText(least) + " to " + NumberText(most) + ")";
}

}  // namespace

void RefuseWord(std::string_view what, std::string_view text) {
    throw UsageError(std::string(what) + " is not right: '" + std::string(text) + "'");
}

double ParseNumber(std::string_view text, double least, double most, std::string_view what) {
    double value = 0;
    const auto [end, error] = std::from_chars(text.data(), text.data() + text.size(), value);
    const bool isNumber = error == std::errc() && end == text.data() + text.size();
    if (!isNumber || !(value >= least && value <= most))
        RefuseWord(BoundsText(what, least, most), text);
    return value;
}

int ParseWhole(std::string_view text, int least, int most, std::string_view what) {
    const double value = ParseNumber(text, least, most, what);
    const int whole = static_cast<int>(value);
    if (whole != value) RefuseWord(BoundsText(what, least, most), text);
    return whole;
}

std::string NumberText(double value) {
    std::array<char, 32> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), value).ptr;
    return std::string(digits.data(), end);
}

std::string_view TakeUntil(std::string_view& text, char mark) {
    const auto front = text.substr(0, text.find(mark));
    text.remove_prefix(std::min(front.size() + 1, text.size()));
    return front;
}

}  // namespace zps::simulator
