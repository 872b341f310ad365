#include "source/step_frame.h"

#include "source/errors.h"
#include "source/numbers.h"

#include <algorithm>
#include <string>

namespace zps {

namespace {

constexpr std::size_t MillisecondDigits = 3;
constexpr int WordLimit = 65535;
constexpr int ByteLimit = 255;
constexpr std::array<char, StepValueCount> ValueLetters{letter::Volt, letter::Curr, letter::Time,
                                                        letter::Slope, letter::Ovp};

// A text of seconds cut at its decimal point.
struct CutSeconds {
    std::string_view Whole;          // before the point
    std::string_view Milliseconds;   // the three digits after it
    std::string_view Rest;           // what follows
    std::string_view ToMillisecond;  // everything but the rest
};

CutSeconds Cut(std::string_view text) {
    const auto point = text.find('.');
    if (point == std::string_view::npos) {
        throw OverflowError(Overflow::NoPoint, std::string(text));
    }
    const auto rest = std::min(text.size(), point + 1 + MillisecondDigits);
    return {text.substr(0, point), text.substr(point + 1, MillisecondDigits), text.substr(rest),
            text.substr(0, rest)};
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

std::int32_t SetPointCounts(std::string_view text, std::int32_t scale) {
    return RoundHalfEven(static_cast<double>(ToSingle(LeadingNumber(text))) * scale);
}

Bytes SetPointBytes(std::string_view text, std::int32_t scale) {
    return WordBytes(SetPointCounts(text, scale));
}

Bytes TimeBytes(std::string_view text) {
    const CutSeconds cut = Cut(text);
    Bytes bytes = Joined(WordBytes(StrictInteger(cut.Whole, 0, WordLimit)),
                         WordBytes(StrictInteger(cut.Milliseconds, 0, WordLimit)));
    bytes.push_back(ToByte(StrictInteger(cut.Rest, 0, ByteLimit)));
    return bytes;
}

Bytes SlopeBytes(std::string_view text) {
    constexpr int MillisecondsPerSecond = 1000;
    const CutSeconds cut = Cut(text);
    Bytes bytes = WordBytes(SetPointCounts(cut.ToMillisecond, MillisecondsPerSecond));
    bytes.push_back(ToByte(StrictInteger(cut.Rest, 0, ByteLimit)));
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
