#include "source/step_frame.h"

#include "source/errors.h"
#include "source/numbers.h"

#include <algorithm>

namespace zps {

namespace {

constexpr std::size_t MillisecondDigits = 3;
constexpr int WordLimit = 65535;
constexpr int ByteLimit = 255;

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

// A slope time: milliseconds as 16 bits, hundredths of a millisecond.
std::array<int, 3> SlopeBytes(std::string_view text) {
    constexpr int MillisecondsPerSecond = 1000;
    const CutSeconds cut = Cut(text);
    const Word milliseconds = SplitWord(SetPointCounts(cut.ToMillisecond, MillisecondsPerSecond));
    return {milliseconds.High, milliseconds.Low, StrictInteger(cut.Rest, 0, ByteLimit)};
}

FrameBuilder& AppendTime(FrameBuilder& builder, std::string_view text) {
    return builder.Command('T').Append(TimeBytes(text));
}

FrameBuilder& AppendSlope(FrameBuilder& builder, std::string_view text) {
    return builder.Command('D').Append(SlopeBytes(text));
}

}  // namespace

std::int32_t SetPointCounts(std::string_view text, std::int32_t scale) {
    return RoundHalfEven(static_cast<double>(ToSingle(LeadingNumber(text))) * scale);
}

std::array<int, 5> TimeBytes(std::string_view text) {
    const CutSeconds cut = Cut(text);
    const Word seconds = SplitWord(StrictInteger(cut.Whole, 0, WordLimit));
    const Word milliseconds = SplitWord(StrictInteger(cut.Milliseconds, 0, WordLimit));
    return {seconds.High, seconds.Low, milliseconds.High, milliseconds.Low,
            StrictInteger(cut.Rest, 0, ByteLimit)};
}

Frame OvpFrame(int address, std::string_view text, std::int32_t voltScale) {
    FrameBuilder builder(address);
    return builder.Command('O').AppendWord(SetPointCounts(text, voltScale)).Finish();
}

Frame SlopeFrame(int address, std::string_view text) {
    FrameBuilder builder(address);
    return AppendSlope(builder, text).Finish();
}

Frame TimeFrame(int address, std::string_view text) {
    FrameBuilder builder(address);
    return AppendTime(builder, text).Finish();
}

Frame SelectStepFrame(int address, int step) {
    return FrameBuilder(address).Command('S', {step}).Finish();
}

Frame UploadFrame(int address, int step, const StepTexts& texts, std::int32_t voltScale,
                  std::int32_t currScale) {
    FrameBuilder builder(address);
    builder.Command('S', {step});
    builder.Command('V').AppendWord(SetPointCounts(texts.Volt, voltScale));
    builder.Command('C').AppendWord(SetPointCounts(texts.Curr, currScale));
    AppendTime(builder, texts.Time);
    AppendSlope(builder, texts.Slope);
    builder.Command('O').AppendWord(SetPointCounts(texts.Ovp, voltScale));
    return builder.Finish();
}

}  // namespace zps
