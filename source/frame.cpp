#include "source/frame.h"

#include "source/errors.h"
#include "source/numbers.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <numeric>
#include <string_view>
#include <utility>

namespace zps {

namespace {

constexpr std::size_t LengthPosition = 2;
constexpr std::size_t CommandsPosition = 3;

std::uint8_t LowByteOfSum(const Bytes& data) {
    return static_cast<std::uint8_t>(std::accumulate(data.begin(), data.end(), 0U) & 0xFFU);
}

// The letters that take data, and the zeros behind it. The supply is built for these lengths.
struct CommandShape {
    std::string_view Letters;
    std::size_t DataBytes;
    std::size_t Padding;
};
constexpr std::array CommandShapes{
    CommandShape{"AGSWX", 1, 5},
    CommandShape{"COV", 2, 2},
    CommandShape{"D", 3, 0},
    CommandShape{"T", 5, 0},
};
constexpr CommandShape AnyOther{"", 0, 1};

CommandShape ShapeOf(int commandLetter) {
    for (const auto& shape : CommandShapes) {
        if (std::any_of(shape.Letters.begin(), shape.Letters.end(),
                        [commandLetter](char known) { return known == commandLetter; })) {
            return shape;
        }
    }
    return AnyOther;
}

}  // namespace

FrameBuilder::FrameBuilder(int address) : Data{ToByte(address), code::Stx, 0} {}

FrameBuilder& FrameBuilder::Command(char commandLetter, std::initializer_list<int> data) {
    Append({code::Esc, static_cast<unsigned char>(commandLetter)});
    return Append(data);
}

FrameBuilder& FrameBuilder::Append(std::initializer_list<int> data) {
    return Append(std::span(data.begin(), data.size()));
}

FrameBuilder& FrameBuilder::Append(std::span<const int> data) {
    for (const int value : data) Data.push_back(ToByte(value));
    return *this;
}

FrameBuilder& FrameBuilder::Append(const Bytes& data) {
    Data.insert(Data.end(), data.begin(), data.end());
    return *this;
}

FrameBuilder& FrameBuilder::AppendWord(std::int32_t value) {
    const Word word = SplitWord(value);
    return Append({word.High, word.Low});
}

Request FrameBuilder::FirstRequest() const {
    constexpr std::size_t letterPosition = CommandsPosition + 1;  // behind ESC
    Request first;
    if (Data.size() > letterPosition) first.Letter = static_cast<char>(Data[letterPosition]);
    if (Data.size() > letterPosition + 1) first.Data = Data[letterPosition + 1];
    return first;
}

Frame FrameBuilder::Finish() {
    Frame frame;
    frame.Asks = FirstRequest();
    frame.Length = ToByte(static_cast<std::int64_t>(Data.size() - CommandsPosition));
    Data[LengthPosition] = frame.Length;
    Data.push_back(code::Etx);
    frame.Sum = LowByteOfSum(Data);
    Data.push_back(frame.Sum);
    frame.Data = std::move(Data);
    return frame;
}

Word SplitWord(std::int32_t value) {
    return {value / 256, value % 256};
}

Frame SingleCommand(int address, int commandLetter, std::initializer_list<int> data) {
    const CommandShape shape = ShapeOf(commandLetter);
    FrameBuilder builder(address);
    builder.Append({code::Esc, commandLetter});
    auto value = data.begin();
    for (std::size_t i = 0; i < shape.DataBytes; ++i) {
        builder.Append({value != data.end() ? *value++ : 0});
    }
    for (std::size_t i = 0; i < shape.Padding; ++i) builder.Append({0});
    return builder.Finish();
}

Frame ControlFrame(int address, std::uint8_t controlCode) {
    Frame frame;
    frame.Sum = ToByte(std::int64_t{address} + controlCode);
    frame.Data = {ToByte(address), controlCode, frame.Sum};
    return frame;
}

Frame ProbeFrame(int address, std::uint8_t controlCode, int checkAddress) {
    Frame frame;
    frame.Sum = static_cast<std::uint8_t>((checkAddress + controlCode) & 0xFF);
    frame.Data = {ToByte(address), controlCode, frame.Sum};
    return frame;
}

Frame InitialisationFrame(int address) {
    constexpr int EndOfSequence = 0xFF;
    FrameBuilder builder(address);
    for (const char off : {letter::Output, letter::Sensing, letter::Auto, letter::OverCurrent}) {
        builder.Command(off, {0});
    }
    return builder.Command(letter::Sequence, {EndOfSequence})
        .Command(letter::Count, {0, 0})
        .Finish();
}

}  // namespace zps
