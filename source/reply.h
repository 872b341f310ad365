// What the supply answers: three bytes of acknowledgement, or fourteen bytes of data.
#pragma once

#include "serial/port.h"
#include "source/frame.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace zps {

// The outcome of the last reply; the numbers are the codes by which people know them.
enum class Reply : std::int16_t {
    None = 0,
    Nak = 2,
    Ack = 3,
    BadAck = 9,  // bytes where an acknowledgement was expected, but not a valid one
    Data = 14,
    BadData = 19,  // a data reply of the wrong length or with a bad header
};

// Values of ReplyFlag: the kind of reply that a frame asks for.
inline constexpr std::int16_t ExpectAck = 0;
inline constexpr std::int16_t ExpectData = 14;

inline constexpr std::size_t AckLength = 3;
inline constexpr std::size_t DataLength = 14;

// How long a window waits for the bytes of a reply once its event has come.
inline constexpr std::chrono::milliseconds ReplyWait{100};

// Whether the check byte of an acknowledgement is the sum of address and code as it is (an address
// above 249 can then never be acknowledged), or that sum modulo 256.
enum class CheckByte { Whole, Wrapped };

// Judges the bytes of one reply to a frame that asked for `replyFlag`.
Reply JudgeReply(std::span<const std::uint8_t> bytes, std::int16_t replyFlag, int address,
                 CheckByte check);

// Waits until `wanted` bytes have arrived or `limit` has passed, and reads all there are.
Bytes GatherReply(serial::Port& port, std::size_t wanted, serial::WaitMode mode,
                  std::chrono::milliseconds limit = ReplyWait);

// Bits of the status byte.
namespace status {
inline constexpr std::uint8_t Fault = 1;
inline constexpr std::uint8_t Sensing = 2;
inline constexpr std::uint8_t Output = 4;
inline constexpr std::uint8_t Auto = 8;
inline constexpr std::uint8_t ConstantCurrent = 16;
inline constexpr std::uint8_t OverCurrentProtection = 32;
inline constexpr std::uint8_t Remote = 64;
inline constexpr std::uint8_t RemoteSerial = 128;
}  // namespace status

// The fields of a data reply as the main window reads them.
struct ReadBack {
    std::uint8_t Status;  // bits of namespace status
    std::uint8_t Code;    // error or end code
    std::uint32_t Volt;   // counts of 1 / (10 * VoltScale) V
    std::uint32_t Curr;   // counts of 1 / (10 * CurrScale) A
    std::uint8_t Step;    // the active step
};
ReadBack ReadDataReply(std::span<const std::uint8_t, DataLength> bytes);

// The 16-bit fields that stand in the same place while the output is off, and that the settings and
// test windows read at any time. Rated values are in tenths of a volt and of an ampere.
struct RatingFields {
    int Volt;
    int Ovp;
    int Curr;
};
RatingFields ReadRatingFields(std::span<const std::uint8_t, DataLength> bytes);

}  // namespace zps
