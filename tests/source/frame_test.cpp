#include "source/errors.h"
#include "source/reply.h"
#include "source/step_frame.h"
#include "source/value_format.h"

#include <gtest/gtest.h>

#include <cmath>

namespace zps {
namespace {

using namespace code;
using enum Reply;

TEST(Frames, AreTheKnownOnesByteForByte) {
    const std::pair<Frame, Bytes> rows[] = {
        {ValueFrame(1, StepValue::Ovp, SetPointBytes(12.5, 1)), {1, 2, 4, 27, 'O', 0, 12, 3, 0x80}},
        {ValueFrame(30, StepValue::Slope, SlopeBytes(1.23456)),
         {30, 2, 5, 27, 'D', 4, 0xD2, 56, 3, 0x95}},
        {ValueFrame(1, StepValue::Time, TimeBytes(65535.99999)),
         {1, 2, 7, 27, 'T', 255, 255, 3, 0xE7, 99, 3, 0xC7}},
        {ProbeFrame(251, Enq, 251), {251, 5, 0}},
        {ProbeFrame(2, Dc3, 255), {2, 19, 18}},
    };
    for (const auto& [frame, bytes] : rows) {
        EXPECT_EQ(frame.Data, bytes);
        EXPECT_EQ(frame.Sum, bytes.back());
        const bool asks = bytes.size() > 3;
        EXPECT_EQ(frame.Asks.Letter, asks ? bytes[4] : 0);
        EXPECT_EQ(frame.Asks.Data, asks ? bytes[5] : 0);
    }
}

// What the panel shows and what the supply gets are the same number, to the last count.
TEST(Frames, CarryEachValueAsItsTextHasIt) {
    const auto bytes = [](const std::vector<int>& words, int rest) {
        Bytes all;
        for (const int word : words)
            all.insert(all.end(), {ToByte(word / 256), ToByte(word % 256)});
        if (rest >= 0) all.push_back(ToByte(rest));
        return all;
    };
    for (const float rating : {2.0F, 20.0F, 200.0F, 6000.0F}) {
        ValueFormat format;
        format.SetMaxVolt(rating);
        const double scale = format.VoltScale;
        for (double tenth = 0; tenth <= format.MaxOvp * 10 * scale; tenth += 37) {
            const Figure shown = format.FormatVolt(ToSingle(tenth / (10 * scale)));
            ASSERT_EQ(shown.Value, std::stod(shown.Text));
            const double counts = std::stof(shown.Text) * scale;
            ASSERT_EQ(SetPointBytes(shown.Value, format.VoltScale),
                      bytes({static_cast<int>(std::lrint(counts))}, -1));
        }
    }
    for (double time = 0; time <= 5e9; time += time < 5e6 ? 101 : 99'991) {
        const Figure shown = FormatSeconds(time / 1e5);
        const auto cut = [&](std::size_t fromPoint, std::size_t length) {
            return std::stoi(shown.Text.substr(shown.Text.find('.') + fromPoint, length));
        };
        const int whole = std::stoi(shown.Text);
        ASSERT_EQ(TimeBytes(shown.Value), bytes({whole, cut(1, 3)}, cut(4, 2))) << shown.Text;
        if (whole > 50) continue;
        ASSERT_EQ(SlopeBytes(shown.Value), bytes({whole * 1000 + cut(1, 3)}, cut(4, 2)));
    }
}

TEST(SingleCommand, TakesTheDataOfItsLetterAndFillsUpWithZeros) {
    const std::pair<std::string_view, Bytes> rows[] = {{"AGSWX", {9, 0, 0, 0, 0, 0}},
                                                       {"COV", {9, 8, 0, 0}},
                                                       {"D", {9, 8, 7}},
                                                       {"T", {9, 8, 7, 6, 5}},
                                                       {"BEFHIJKLMNPQRUYZ@ag", {0}}};
    for (const auto& [letters, data] : rows) {
        for (const char letter : letters) {
            const Bytes sent = SingleCommand(30, letter, {9, 8, 7, 6, 5}).Data;
            EXPECT_EQ(Bytes(sent.begin() + 5, sent.end() - 2), data) << letter;
            EXPECT_EQ((std::pair{sent[2] - 2, sent[4] + 0}),
                      (std::pair{static_cast<int>(data.size()), letter + 0}));
        }
    }
}

TEST(Frames, RefuseWhatFitsNoByte) {
    FrameBuilder builder(1);
    for (int i = 0; i < 255; ++i) builder.Append({i});
    EXPECT_EQ(FrameBuilder(builder).Finish().Length, 255);
    EXPECT_THROW(builder.Append({0}).Finish(), OverflowError);
    for (const int none : {-1, 256}) {
        EXPECT_THROW(SingleCommand(none, 'G', {1}), OverflowError);
        EXPECT_THROW(SingleCommand(1, 'G', {none}), OverflowError);
        EXPECT_THROW(ProbeFrame(none, Enq, 1), OverflowError);
    }
    // The sum of an address and a code must fit too.
    for (const auto& [code, highest] : {std::pair{Enq, 250}, {Dle, 239}, {Dc1, 238}, {Dc3, 236}}) {
        EXPECT_EQ(ControlFrame(highest, code).Sum, 255);
        EXPECT_THROW(ControlFrame(highest + 1, code), OverflowError);
    }
    for (const double volts : {655.36, -0.01, 1e99})
        EXPECT_THROW(SetPointBytes(volts, 100), OverflowError) << volts;
    for (const double time : {65536.0, -1.0, 1e99})
        EXPECT_THROW(TimeBytes(time), OverflowError) << time;
    for (const double slope : {65.536, -0.00001})
        EXPECT_THROW(SlopeBytes(slope), OverflowError) << slope;
}

TEST(Acknowledgement, HasItsOutcomeWhichDependsOnTheCheckByteForHighAddressesOnly) {
    const auto judge = [](int address, const Bytes& bytes) {
        return std::pair(JudgeReply(bytes, ExpectAck, address, CheckByte::Whole),
                         JudgeReply(bytes, ExpectAck, address, CheckByte::Wrapped));
    };
    EXPECT_EQ(judge(1, {}), std::pair(None, None));
    EXPECT_EQ(judge(1, {1, 6, 7}), std::pair(Ack, Ack));
    EXPECT_EQ(judge(1, {1, 0x15, 0x16}), std::pair(Nak, Nak));
    for (const Bytes& bad : {Bytes{1, 6, 8}, {1, 7, 8}, {2, 6, 7}, {1, 6}, {1, 6, 7, 1}})
        EXPECT_EQ(judge(1, bad), std::pair(BadAck, BadAck)) << testing::PrintToString(bad);
    EXPECT_EQ(judge(250, {250, 6, 0}), std::pair(BadAck, Ack));
    EXPECT_EQ(judge(235, {235, 21, 0}), std::pair(BadAck, Nak));
}

TEST(DataReply, NeedsFourteenBytesAndItsHeaderAndHasTwoReadings) {
    const Bytes known{1, 2, 9, 4, 0, 0, 0x2F, 0x44, 0, 0x27, 0x10, 3, 0, 0};
    for (std::size_t i = 0; i < 14; ++i) {
        const Bytes cut(known.begin(), known.begin() + static_cast<int>(i));
        Bytes wrong = known;
        wrong[i] ^= 0xFF;
        EXPECT_EQ(JudgeReply(cut, ExpectData, 1, CheckByte::Whole), i == 0 ? None : BadData) << i;
        EXPECT_EQ(JudgeReply(wrong, ExpectData, 1, CheckByte::Whole), i < 3 ? BadData : Data) << i;
    }
    const auto fields = [](const Bytes& bytes) {
        const std::span<const std::uint8_t, 14> fourteen(bytes);
        const auto [status, code, volt, curr, step] = ReadDataReply(fourteen);
        return std::vector<std::uint32_t>{status, code, volt, curr, step};
    };
    const Bytes high{1, 2, 9, 0x81, 16, 0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 99, 17, 34};
    EXPECT_EQ(fields(high), (std::vector<std::uint32_t>{0x81, 16, 0xFEDCBA, 0x987654, 99}));
    const auto [volt, ovp, curr] = ReadRatingFields(std::span<const std::uint8_t, 14>(high));
    EXPECT_EQ((std::array{volt, ovp, curr}), (std::array{0xFEDC, 0xBA98, 0x7654}));
}

}  // namespace
}  // namespace zps
