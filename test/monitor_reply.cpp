#include "test/monitor_reply.h"

#include "source/numbers.h"

namespace zps {

namespace {

constexpr std::uint8_t EndOfAutoRun = 32;

struct CodeText {
    std::uint8_t Code;
    const char* Text;
};
constexpr std::array CodeTexts{
    CodeText{1, "OUT OFF ERROR VOLTAGE"},
    CodeText{3, "MAX. OVER VOLTAGE"},
    CodeText{4, "MAX. OVER CURRENT"},
    CodeText{5, "SET OVER VOLTAGE"},
    CodeText{6, "SET OVER CURRENT"},
    CodeText{7, "OUT OFF ERROR CURRENT"},
    CodeText{EndOfAutoRun, "Auto Test Ending"},
};

}  // namespace

Verdict JudgeMonitorReply(std::span<const std::uint8_t> bytes, int address) {
    const auto judged = [&](std::size_t length, std::int16_t replyFlag) {
        return JudgeReply(bytes.first(length), replyFlag, address, CheckByte::Wrapped);
    };
    if (bytes.empty()) return Verdict::Nothing;
    if (bytes.size() < AckLength) return Verdict::Fragment;
    if (bytes.size() < DataLength) {
        return judged(AckLength, ExpectAck) == Reply::Ack ? Verdict::GoodEnq : Verdict::BadEnq;
    }
    return judged(DataLength, ExpectData) == Reply::Data ? Verdict::GoodDle : Verdict::BadDle;
}

bool IsGood(Verdict verdict) {
    return verdict == Verdict::GoodEnq || verdict == Verdict::GoodDle;
}

const char* TextOf(Verdict verdict) {
    switch (verdict) {
        case Verdict::Nothing:
            return "ERROR  Nothing";
        case Verdict::Fragment:
            return "ERROR  TX/RX";
        case Verdict::GoodEnq:
            return "GOOD  ENQ";
        case Verdict::BadEnq:
            return "ERROR  ENQ";
        case Verdict::GoodDle:
            return "GOOD  DLE";
        case Verdict::BadDle:
            return "ERROR  DLE";
    }
    return "";
}

std::optional<std::array<std::uint8_t, 3>> ShownHeader(std::span<const std::uint8_t> bytes) {
    if (bytes.size() < AckLength) return std::nullopt;
    const auto tail = bytes.last(bytes.size() < DataLength ? AckLength : DataLength);
    return std::array<std::uint8_t, 3>{tail[0], tail[1], tail[2]};
}

std::string ErrorText(std::uint8_t errorCode) {
    for (const auto& text : CodeTexts) {
        if (text.Code == errorCode) return text.Text;
    }
    return std::to_string(errorCode);
}

std::string TextOf(const Stamp& stamp) {
    constexpr double millisecondsPerSecond = 1000;
    std::string outcome = stamp.Asked ? "응답 없음" : "조회 없이 수신";
    if (stamp.After) {
        const auto seconds = static_cast<double>(stamp.After->count()) / millisecondsPerSecond;
        outcome = FormatFixed(seconds, 2) + "초";
    }
    return stamp.Clock + " · " + std::to_string(stamp.Bytes) + "바이트 · " + outcome;
}

std::array<FieldText, FieldCount> DecodeFields(std::span<const std::uint8_t, DataLength> bytes) {
    const ReadBack values = ReadDataReply(bytes);
    const RatingFields counts = ReadRatingFields(bytes);
    const bool outputOff = (values.Status & status::Output) == 0;
    const auto tenths = [&](int count, const char* unit) {
        constexpr double perUnit = 10;
        FieldText text{std::to_string(count), {}};
        if (outputOff) text.Scaled = "= " + FormatFixed(count / perUnit, 1) + " " + unit;
        return text;
    };
    return {FieldText{std::to_string(values.Status), {}},
            {ErrorText(values.Code), {}},
            {std::to_string(values.Step), {}},
            tenths(counts.Volt, "V"),
            tenths(counts.Ovp, "V"),
            tenths(counts.Curr, "A")};
}

}  // namespace zps
