#include "source/reply.h"

#include <gtest/gtest.h>

namespace zps {
namespace {

using enum Reply;
using Numbers = std::vector<std::uint32_t>;

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
        return Numbers{status, code, volt, curr, step};
    };
    const Bytes high{1, 2, 9, 0x81, 16, 0xFE, 0xDC, 0xBA, 0x98, 0x76, 0x54, 99, 17, 34};
    EXPECT_EQ(fields(high), (Numbers{0x81, 16, 0xFEDCBA, 0x987654, 99}));
    const auto [volt, ovp, curr] = ReadRatingFields(std::span<const std::uint8_t, 14>(high));
    EXPECT_EQ((std::array{volt, ovp, curr}), (std::array{0xFEDC, 0xBA98, 0x7654}));
}

}  // namespace
}  // namespace zps
