#include "source/errors.h"
#include "source/step_frame.h"

#include <gtest/gtest.h>

namespace zps {
namespace {

using namespace code;

TEST(Frames, AreTheKnownOnesByteForByte) {
    const std::pair<Frame, Bytes> rows[] = {
        {ValueFrame(1, StepValue::Ovp, SetPointBytes("163.5", 100)),
         {1, 2, 4, 27, 'O', 0x3F, 0xDE, 3, 0x91}},
        {ValueFrame(1, StepValue::Ovp, SetPointBytes("12.5", 1)),
         {1, 2, 4, 27, 'O', 0, 12, 3, 0x80}},
        {ValueFrame(1, StepValue::Volt, SetPointBytes("12.34", 100)),
         {1, 2, 6, 27, 'V', 4, 0xD2, 0, 0, 3, 0x53}},
        {ValueFrame(30, StepValue::Slope, SlopeBytes("1.23456")),
         {30, 2, 5, 27, 'D', 4, 0xD2, 56, 3, 0x95}},
        {ValueFrame(1, StepValue::Time, TimeBytes("65535.99999")),
         {1, 2, 7, 27, 'T', 255, 255, 3, 0xE7, 99, 3, 0xC7}},
        {ProbeFrame(251, Enq, 251), {251, 5, 0}},
        {ProbeFrame(2, Dc3, 255), {2, 19, 18}},
    };
    for (const auto& [frame, bytes] : rows) {
        EXPECT_EQ(frame.Data, bytes);
        EXPECT_EQ(frame.Sum, bytes.back());
        EXPECT_EQ(frame.Length, bytes.size() == 3 ? 0 : bytes[2]);
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

TEST(ControlFrame, ReachesOnlyAddressesWhoseSumFitsAByte) {
    const std::uint8_t codes[] = {Enq, Dle, Dc1, Dc3}, highest[] = {250, 239, 238, 236};
    for (const std::size_t i : {0U, 1U, 2U, 3U}) {
        EXPECT_EQ(ControlFrame(highest[i], codes[i]).Data, (Bytes{highest[i], codes[i], 255}));
        EXPECT_THROW(ControlFrame(highest[i] + 1, codes[i]), OverflowError);
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
    for (const char* volts : {"655.36", "-0.01", "1e99"})
        EXPECT_THROW(SetPointBytes(volts, 100), OverflowError) << volts;
    for (const char* time : {"65536.00000", "-1.00000", "1.5", "x"})
        EXPECT_THROW(TimeBytes(time), OverflowError) << time;
    for (const char* slope : {"65.53600", "-1.00000", "1.234", ""})
        EXPECT_THROW(SlopeBytes(slope), OverflowError) << slope;
}

}  // namespace
}  // namespace zps
