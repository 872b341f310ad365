// What has gone over the line: the last of it, by all windows and in both directions, as bytes.
#pragma once

#include "serial/event_loop.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace zps {

// Counts per volt and per ampere of a supply whose ratings were known; 0 where they were not.
struct Scales {
    std::int32_t Volt = 0;
    std::int32_t Curr = 0;
};

// Something at the port.
enum class LineEvent : std::uint8_t {
    Opened,
    Closed,
    NotOpened,  // the port was asked for and could not be had
    Sent,
    Read,    // what a window has read between two waits: one reply, as it judges it
    Thrown,  // what had come and was thrown away unread
};

struct EventTime {
    serial::Clock::time_point At;
    std::chrono::system_clock::time_point TimeOfDay;

    static EventTime Now() { return {serial::Clock::now(), std::chrono::system_clock::now()}; }
};

struct LineMessage {
    LineEvent What = LineEvent::Opened;
    std::uint8_t CommPort = 0;
    EventTime When{};  // sent, or begun to be read
    Scales Known{};    // of the supply at the address in the first byte, at that time
    std::vector<std::uint8_t> Data{};
};

// Keeps the last MostMessages, fewer where they are so long that their bytes find no room. All its
// memory is taken at once, and noting a message copies its bytes and does nothing else. A copy
// keeps what is in it now. Messages bear numbers from 0 on. Window thread only.
class LineTrace {
  public:
    static constexpr std::size_t MostMessages = 8000;  // 4000 exchanges
    static constexpr std::size_t Room = 256 * 1024;    // bytes; 32 for each message

    LineTrace();

    void Note(LineEvent what, int commPort, const EventTime& when, const Scales& known = {},
              std::span<const std::uint8_t> data = {});
    // One more byte of the message noted last.
    void Append(std::uint8_t byte);

    // The numbers of the oldest message that is kept, and of the next that will be noted.
    std::uint64_t First() const { return Oldest; }
    std::uint64_t End() const { return Next; }
    // None if it is not kept, or not noted yet.
    std::optional<LineMessage> Find(std::uint64_t number) const;

  private:
    struct Entry {
        EventTime When;
        std::uint64_t Place = 0;  // of its first byte, among all bytes ever noted
        Scales Known;
        std::uint32_t Length = 0;
        LineEvent What = LineEvent::Opened;
        std::uint8_t CommPort = 0;
    };
    const Entry& EntryOf(std::uint64_t number) const { return Entries[number % MostMessages]; }

    std::vector<Entry> Entries;
    std::vector<std::uint8_t> Bytes;
    std::uint64_t Oldest = 0;
    std::uint64_t Next = 0;
    std::uint64_t Stored = 0;  // bytes ever noted
};

}  // namespace zps
