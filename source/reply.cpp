#include "source/reply.h"

namespace zps {

namespace {

constexpr std::uint8_t DataHeaderLength = 9;

Reply JudgeAcknowledgement(std::span<const std::uint8_t> bytes, int address, CheckByte check) {
    const auto answers = [&](std::uint8_t answer) {
        const int sum = address + answer;
        return bytes[1] == answer && bytes[2] == (check == CheckByte::Wrapped ? sum & 0xFF : sum);
    };
    if (bytes.empty()) return Reply::None;
    if (bytes.size() != AckLength || bytes[0] != address) return Reply::BadAck;
    if (answers(code::Ack)) return Reply::Ack;
    return answers(code::Nak) ? Reply::Nak : Reply::BadAck;
}

Reply JudgeData(std::span<const std::uint8_t> bytes, int address) {
    if (bytes.empty()) return Reply::None;
    const bool good = bytes.size() == DataLength && bytes[0] == address && bytes[1] == code::Stx &&
                      bytes[2] == DataHeaderLength;
    return good ? Reply::Data : Reply::BadData;
}

std::uint32_t BigEndian(std::span<const std::uint8_t> bytes) {
    std::uint32_t value = 0;
    for (const std::uint8_t byte : bytes) value = value * 256 + byte;
    return value;
}

}  // namespace

Reply JudgeReply(std::span<const std::uint8_t> bytes, std::int16_t replyFlag, int address,
                 CheckByte check) {
    return replyFlag == ExpectData ? JudgeData(bytes, address)
                                   : JudgeAcknowledgement(bytes, address, check);
}

Bytes GatherReply(serial::Port& port, std::size_t wanted, serial::WaitMode mode,
                  std::chrono::milliseconds limit) {
    port.WaitForInput(wanted, limit, mode);
    Bytes reply;
    for (std::size_t left = port.InBufferCount(); left > 0; --left) reply.push_back(port.Input());
    return reply;
}

ReadBack ReadDataReply(std::span<const std::uint8_t, DataLength> bytes) {
    return {bytes[3], bytes[4], BigEndian(bytes.subspan(5, 3)), BigEndian(bytes.subspan(8, 3)),
            bytes[11]};
}

RatingFields ReadRatingFields(std::span<const std::uint8_t, DataLength> bytes) {
    const auto field = [&](std::size_t at) {
        return static_cast<int>(BigEndian(bytes.subspan(at, 2)));
    };
    return {field(5), field(7), field(9)};
}

}  // namespace zps
