#include "source/step_frame.h"

#include "source/errors.h"
#include "source/numbers.h"

#include <cmath>
#include <cstdlib>

namespace zps {

namespace {

constexpr double WordLimit = 65536;
// Times are sent down to a hundredth of a millisecond.
constexpr std::int64_t CountsPerMillisecond = 100;
constexpr std::int64_t MillisecondsPerSecond = 1000;
constexpr std::array<char, StepValueCount> ValueLetters{letter::Volt, letter::Curr, letter::Time,
                                                        letter::Slope, letter::Ovp};

// `seconds` in those hundredths, if they stay below `limit` seconds.
std::int64_t TimeCounts(double seconds, double limit) {
    constexpr double perSecond = CountsPerMillisecond * MillisecondsPerSecond;
    const double counts = std::nearbyint(seconds * perSecond);
    if (!(counts >= 0 && counts < limit * perSecond)) {
        throw OverflowError(Overflow::TooLarge, FormatFixed(seconds, 5));
    }
    return static_cast<std::int64_t>(counts);
}

Bytes WordBytes(std::int32_t value) {
    const Word word = SplitWord(value);
    return {ToByte(word.High), ToByte(word.Low)};
}

Bytes Joined(Bytes first, const Bytes& second) {
    first.insert(first.end(), second.begin(), second.end());
    return first;
}

char LetterOf(StepValue value) {
    return ValueLetters.at(static_cast<std::size_t>(value));
}

}  // namespace

std::int32_t SetPointCounts(double value, std::int32_t scale) {
    return RoundHalfEven(static_cast<double>(ToSingle(value)) * scale);
}

Bytes SetPointBytes(double value, std::int32_t scale) {
    return WordBytes(SetPointCounts(value, scale));
}

Bytes TimeBytes(double seconds) {
    const auto [milliseconds, rest] =
        std::div(TimeCounts(seconds, WordLimit), CountsPerMillisecond);
    const auto [whole, afterPoint] = std::div(milliseconds, MillisecondsPerSecond);
    Bytes bytes = Joined(WordBytes(static_cast<std::int32_t>(whole)),
                         WordBytes(static_cast<std::int32_t>(afterPoint)));
    bytes.push_back(ToByte(rest));
    return bytes;
}

Bytes SlopeBytes(double seconds) {
    const auto [milliseconds, rest] =
        std::div(TimeCounts(seconds, WordLimit / MillisecondsPerSecond), CountsPerMillisecond);
    Bytes bytes = WordBytes(static_cast<std::int32_t>(milliseconds));
    bytes.push_back(ToByte(rest));
    return bytes;
}

Frame ValueFrame(int address, StepValue value, const Bytes& bytes) {
    if (value == StepValue::Volt || value == StepValue::Curr) {
        return SingleCommand(address, LetterOf(value), {bytes.at(0), bytes.at(1)});
    }
    return FrameBuilder(address).Command(LetterOf(value)).Append(bytes).Finish();
}

Frame SelectingValueFrame(int address, int step, StepValue value, const Bytes& bytes) {
    FrameBuilder builder(address);
    builder.Command(letter::Step, {step});
    return builder.Command(LetterOf(value)).Append(bytes).Finish();
}

Frame SelectStepFrame(int address, int step) {
    return FrameBuilder(address).Command(letter::Step, {step}).Finish();
}

Frame UploadFrame(int address, int step, const StepBytes& values) {
    FrameBuilder builder(address);
    builder.Command(letter::Step, {step});
    for (std::size_t value = 0; value < StepValueCount; ++value) {
        builder.Command(ValueLetters.at(value)).Append(values.at(value));
    }
    return builder.Finish();
}

}  // namespace zps
