// The frames that the panel sends. Every function here is plain: values in, bytes out.
//
//   framed command   address STX L {ESC letter data...} ETX sum      L counts ESC .. last data byte
//   control frame    address code sum
//
// The sum of a framed command is the low byte of the sum of everything before it.
#pragma once

#include <cstdint>
#include <initializer_list>
#include <span>
#include <vector>

namespace zps {

using Bytes = std::vector<std::uint8_t>;

namespace code {
inline constexpr std::uint8_t Stx = 2;
inline constexpr std::uint8_t Etx = 3;
inline constexpr std::uint8_t Enq = 5;  // is the supply there?
inline constexpr std::uint8_t Ack = 6;
inline constexpr std::uint8_t Dle = 16;  // send status and read-back
inline constexpr std::uint8_t Dc1 = 17;  // return to local control
inline constexpr std::uint8_t Dc3 = 19;  // go under remote control
inline constexpr std::uint8_t Nak = 21;
inline constexpr std::uint8_t Esc = 27;
}  // namespace code

// The letters of the framed commands.
namespace letter {
inline constexpr char Output = 'A';    // 1 on, 0 off
inline constexpr char Sequence = 'B';  // step numbers, then 0xFF
inline constexpr char Curr = 'C';      // set-point
inline constexpr char Slope = 'D';
inline constexpr char Count = 'F';  // cycles of the sequence
inline constexpr char Auto = 'G';   // 1 on, 0 off
inline constexpr char Ovp = 'O';    // over-voltage limit
inline constexpr char FaultReset = 'R';
inline constexpr char Step = 'S';  // step number
inline constexpr char Time = 'T';
inline constexpr char Volt = 'V';         // set-point
inline constexpr char Sensing = 'W';      // 1 on, 0 off
inline constexpr char OverCurrent = 'X';  // protection: 1 on, 0 off
}  // namespace letter

// What a framed command asks for: its first letter, and the first data byte of that. A control
// frame has none.
struct Request {
    char Letter = 0;
    std::uint8_t Data = 0;
};

struct Frame {
    Bytes Data;               // the whole frame as it goes on the line
    std::uint8_t Length = 0;  // its length byte; 0 for a control frame
    std::uint8_t Sum = 0;     // its last byte
    Request Asks{};
};

// Lays out a framed command, one command after another. Throws OverflowError for an address or a
// data byte outside 0..255 and for a frame longer than its length byte can tell.
class FrameBuilder {
  public:
    explicit FrameBuilder(int address);
    FrameBuilder& Command(char commandLetter, std::initializer_list<int> data = {});
    // Data of the command begun last.
    FrameBuilder& Append(std::initializer_list<int> data);
    FrameBuilder& Append(std::span<const int> data);
    FrameBuilder& Append(const Bytes& data);
    FrameBuilder& AppendWord(std::int32_t value);  // as SplitWord has it
    Frame Finish();

  private:
    Request FirstRequest() const;

    Bytes Data;
};

// High and low byte of a value that is sent as 16 bits. They are not range-checked here: laying
// them into a frame does that.
struct Word {
    int High;
    int Low;
};
Word SplitWord(std::int32_t value);

// The single command of `commandLetter` with as many of the five data bytes as it takes, and the
// zeros that the supply expects after them. Any letter without data of its own is sent with one
// zero. Only set-points and switches are sent this way; the other values of a step, the sequence,
// its count and the fault reset go without zeros (FrameBuilder).
Frame SingleCommand(int address, int commandLetter, std::initializer_list<int> data);

// Three bytes. Throws OverflowError where address + controlCode exceeds 255.
Frame ControlFrame(int address, std::uint8_t controlCode);

// Three bytes whose sum, of `checkAddress` and the code, wraps at 256.
Frame ProbeFrame(int address, std::uint8_t controlCode, int checkAddress);

// Switches output, sensing, auto mode and over-current protection off and empties the sequence and
// its count, in one frame of 24 bytes.
Frame InitialisationFrame(int address);

}  // namespace zps
