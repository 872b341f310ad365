#include "source/numbers.h"

#include "source/errors.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>
#include <utility>

namespace zps {

namespace {

bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}

std::string WithoutBlanks(std::string_view text) {
    std::string kept;
    for (const char c : text) {
        if (c != ' ' && c != '\t' && c != '\n') kept += c;
    }
    return kept;
}

// Length of the number that `text` begins with; 0 where it begins with none.
std::size_t NumberLength(std::string_view text) {
    const auto at = [&](std::size_t i) { return i < text.size() ? text[i] : '\0'; };
    std::size_t end = at(0) == '+' || at(0) == '-' ? 1 : 0;
    bool point = false;
    bool digits = false;
    for (; IsDigit(at(end)) || (at(end) == '.' && !point); ++end) {
        point = point || at(end) == '.';
        digits = digits || IsDigit(at(end));
    }
    if (!digits) return 0;
    if (at(end) == 'e' || at(end) == 'E') {
        std::size_t exponent = end + 1;
        if (at(exponent) == '+' || at(exponent) == '-') ++exponent;
        if (IsDigit(at(exponent))) {
            while (IsDigit(at(exponent))) ++exponent;
            end = exponent;
        }
    }
    return end;
}

// What a number without sign is that no double can hold: an infinity, or nothing at all.
double BeyondRange(std::string_view number) {
    const auto mark = std::min(number.find_first_of("eE"), number.size());
    const auto digits = number.substr(0, mark);
    std::string_view exponentText = number.substr(mark);
    if (!exponentText.empty()) exponentText.remove_prefix(1);
    const bool down = exponentText.starts_with('-');
    if (down || exponentText.starts_with('+')) exponentText.remove_prefix(1);

    // One too long to be read is far beyond what digits in front of it could make up for.
    int exponent = 0;
    const auto [end, error] =
        std::from_chars(exponentText.data(), exponentText.data() + exponentText.size(), exponent);
    if (error == std::errc::result_out_of_range) exponent = std::numeric_limits<int>::max();

    const auto point = static_cast<std::int64_t>(std::min(digits.find('.'), digits.size()));
    const auto first = static_cast<std::int64_t>(digits.find_first_of("123456789"));
    const std::int64_t integerDigits = point - first + (down ? -1 : 1) * std::int64_t{exponent};
    return integerDigits > 0 ? std::numeric_limits<double>::infinity() : 0.0;
}

double ReadNumber(std::string_view number) {
    const bool negative = number.front() == '-';
    if (negative || number.front() == '+') number.remove_prefix(1);
    double value = 0;
    const auto [end, error] = std::from_chars(number.data(), number.data() + number.size(), value);
    if (error == std::errc::result_out_of_range) value = BeyondRange(number);
    return negative ? -value : value;
}

// Adds one unit in the last place of a row of digits with at most one point.
std::string RaiseLastPlace(std::string digits) {
    for (auto place = digits.rbegin(); place != digits.rend(); ++place) {
        if (*place == '.') continue;
        if (*place != '9') {
            ++*place;
            return digits;
        }
        *place = '0';
    }
    return "1" + digits;
}

// `digits` is a plain decimal text without sign.
std::string RoundText(std::string digits, std::size_t decimals) {
    auto point = digits.find('.');
    if (point == std::string::npos) {
        point = digits.size();
        digits += '.';
    }
    const std::size_t kept = point + 1 + decimals;
    if (digits.size() <= kept) {
        digits.append(kept - digits.size(), '0');
    } else {
        const bool up = digits[kept] >= '5';
        digits.resize(kept);
        if (up) digits = RaiseLastPlace(digits);
    }
    if (decimals == 0) digits.pop_back();
    return digits;
}

// The number that `digits` are with their point, if they have one, before the last `decimals`.
double NumberOf(std::string_view digits, int decimals) {
    double units = 0;
    for (const char c : digits) {
        if (c != '.') units = units * 10 + (c - '0');
    }
    double unitsPerOne = 1;
    for (int place = 0; place < decimals; ++place) unitsPerOne *= 10;
    return units / unitsPerOne;
}

template <class Real>
Figure Rounded(Real value, int decimals) {
    std::array<char, 400> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(),
                                       std::abs(value), std::chars_format::fixed);
    std::string shortest(buffer.data(), written.ptr);
    if (!std::isfinite(value)) return {value, shortest};
    std::string digits = RoundText(std::move(shortest), static_cast<std::size_t>(decimals));
    const double size = NumberOf(digits, decimals);
    if (std::signbit(value) && size != 0) return {-size, "-" + digits};
    return {size, std::move(digits)};
}

}  // namespace

double LeadingNumber(std::string_view text) {
    const std::string dense = WithoutBlanks(text);
    const std::size_t length = NumberLength(dense);
    return length == 0 ? 0.0 : ReadNumber(std::string_view(dense).substr(0, length));
}

std::optional<double> WholeNumber(std::string_view text) {
    const std::string dense = WithoutBlanks(text);
    const std::size_t length = NumberLength(dense);
    if (length == 0 || length != dense.size()) return std::nullopt;
    return ReadNumber(dense);
}

int StrictInteger(std::string_view text, int low, int high) {
    const std::size_t length = NumberLength(text);
    if (length == 0 || length != text.size()) {
        throw OverflowError(Overflow::NoNumber, std::string(text));
    }
    const double value = std::nearbyint(ReadNumber(text));
    if (!(value >= low && value <= high)) {
        throw OverflowError(Overflow::OutOfRange, std::string(text), low, high);
    }
    return static_cast<int>(value);
}

Figure ToFigure(double value, int decimals) {
    return Rounded(value, decimals);
}
Figure ToFigure(float value, int decimals) {
    return Rounded(value, decimals);
}
std::string FormatFixed(double value, int decimals) {
    return Rounded(value, decimals).Text;
}
std::string FormatFixed(float value, int decimals) {
    return Rounded(value, decimals).Text;
}

std::string ShortestText(float value) {
    std::array<char, 100> buffer{};
    const auto written = std::to_chars(buffer.data(), buffer.data() + buffer.size(), value,
                                       std::chars_format::fixed);
    return {buffer.data(), written.ptr};
}

float ToSingle(double value) {
    constexpr auto Infinity = std::numeric_limits<float>::infinity();
    if (value > std::numeric_limits<float>::max()) return Infinity;
    if (value < std::numeric_limits<float>::lowest()) return -Infinity;
    return static_cast<float>(value);
}

std::uint8_t ToByte(std::int64_t value) {
    if (value < 0 || value > 255) {
        throw OverflowError(Overflow::NoByte, std::to_string(value));
    }
    return static_cast<std::uint8_t>(value);
}

std::int32_t RoundHalfEven(double value) {
    const double rounded = std::nearbyint(value);  // the default rounding mode is halves to even
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        throw OverflowError(Overflow::TooLarge, FormatFixed(value, 0));
    }
    return static_cast<std::int32_t>(rounded);
}

std::string FormatStep(int step) {
    return (step >= 0 && step < 10 ? "0" : "") + std::to_string(step);
}

}  // namespace zps
