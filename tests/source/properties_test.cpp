// What holds for any input, against models that are slow but plain to see. A case that fails prints
// the words with which RC_PARAMS repeats it.
#include "simulator/command.h"
#include "simulator/splitter.h"
#include "source/frame.h"
#include "source/numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <rapidcheck/gtest.h>
#include <regex>

namespace zps {
namespace {

using namespace rc;

RC_GTEST_PROP(AnyText, IsReadAsTheNumberThatItBeginsWith, ()) {
    const auto piece = gen::elementOf(
        std::vector<std::string>{"1", "05", "9", ".", ".", "-", "+", " ", "\t", "e", "E-", "e400",
                                 "e-400", "1e30", "2.5.1", "V", std::string(30, '0')});
    std::string text;
    for (const auto& one : *gen::resize(10, gen::container<std::vector<std::string>>(piece)))
        text += one;
    const std::string dense = std::regex_replace(text, std::regex("[ \t]"), "");
    const std::regex number(R"([+-]?(\d+\.?\d*|\.\d+)([eE][+-]?\d+)?)");
    std::smatch found;
    const bool begins =
        std::regex_search(dense, found, number, std::regex_constants::match_continuous);
    const double expected = begins ? std::strtod(found.str().c_str(), nullptr) : 0;
    RC_ASSERT(LeadingNumber(text) == expected);
    const bool isWhole = begins && found.str() == dense;
    RC_ASSERT(WholeNumber(text) == (isWhole ? std::optional(expected) : std::nullopt));
    RC_CLASSIFY(begins);
}

// Counts in millionths: rounding is done on whole numbers here.
RC_GTEST_PROP(AnyValue, IsRoundedAsItsDecimalTextIs, ()) {
    const auto count =
        *gen::oneOf(gen::inRange(-700LL, 700LL), gen::inRange(-999'999LL, 1'000'000LL),
                    gen::map(gen::inRange(-99'999'999LL, 100'000'000LL),
                             [](long long half) { return half * 50; }),
                    gen::inRange(-999'999'999'999LL, 1'000'000'000'000LL));
    const int decimals = *gen::inRange(0, 7);
    const double value = std::strtod((std::to_string(count) + "e-6").c_str(), nullptr);

    const auto unit = std::llround(std::pow(10, 6 - decimals));
    const long long units = (std::llabs(count) + unit / 2) / unit;
    std::string expected = std::to_string(units);
    const auto least = static_cast<std::size_t>(decimals) + 1;
    if (expected.size() < least) expected.insert(0, least - expected.size(), '0');
    if (decimals > 0) expected.insert(expected.size() - least + 1, ".");
    if (count < 0 && units != 0) expected.insert(0, "-");

    RC_ASSERT(FormatFixed(value, decimals) == expected);
    RC_ASSERT(ToFigure(value, decimals).Value == std::strtod(expected.c_str(), nullptr));
    // Six digits are as many as single precision keeps for certain.
    if (std::llabs(count) < 1'000'000)
        RC_ASSERT(FormatFixed(static_cast<float>(value), decimals) == expected);
}

using Sent = std::pair<char, Bytes>;

// Data that the supply takes for a letter.
Gen<Sent> AnyCommand() {
    const auto data = [](char letter, std::size_t count, std::uint8_t most) {
        return gen::map(gen::container<Bytes>(count, gen::inRange<std::uint8_t>(0, most)),
                        [letter](Bytes bytes) {
                            return Sent{letter, std::move(bytes)};
                        });
    };
    return gen::oneOf(data('A', 1, 2), data('S', 1, 100), data('V', 2, 255), data('D', 3, 100),
                      data('T', 5, 4), data('F', 2, 195), data('B', 7, 100), data('R', 0, 1));
}

RC_GTEST_PROP(AnyFrame, IsReadByTheSupplyAsItWasBuilt, ()) {
    const auto count = *gen::inRange<std::size_t>(1, 25);  // the length is a byte
    const auto commands = *gen::container<std::vector<Sent>>(count, AnyCommand());
    const auto address = *gen::inRange(0, 256);
    FrameBuilder builder(address);
    for (const auto& [letter, data] : commands) {
        builder.Command(letter).Append(data);
        if (letter == letter::Sequence) builder.Append({0xFF});
    }
    const Frame built = builder.Finish();

    // It comes in pieces, behind a probe.
    simulator::FrameSplitter splitter;
    splitter.Take(ProbeFrame(address, code::Enq, address).Data, {});
    const auto middle = *gen::inRange<std::size_t>(0, built.Data.size());
    splitter.Take(std::span(built.Data).first(middle), {});
    splitter.Take(std::span(built.Data).subspan(middle), {});
    const auto frames = splitter.Frames({});
    RC_ASSERT(frames.size() == 2U);
    RC_ASSERT(frames[1].Kind == simulator::FrameKind::Commands);
    RC_ASSERT(frames[1].Content == built.Data);
    const auto read =
        simulator::ParseCommands(simulator::ByteView(frames[1].Content).subspan(3, built.Length));
    RC_ASSERT(read.has_value());
    std::vector<Sent> heard;
    for (const auto& [letter, data] : *read) heard.emplace_back(letter, data);
    RC_ASSERT(heard == commands);
}

}  // namespace
}  // namespace zps
