// What became of the polls, and how long their answers took: over the last minute and over all.
#pragma once

#include "serial/event_loop.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace zps {

enum class Fate : std::uint8_t {
    Open,      // the last poll, while its answer may still come
    Answered,  // by a good data reply in time
    Silent,    // nothing came until the next poll
    Empty,     // the port told of an answer and had no byte
    WrongLength,
    WrongHeader,
    Late,  // a good data reply, too late to be a reading
};
constexpr std::size_t FateCount = 7;

// Polls by what became of them, and the response times of the answered ones; these are empty where
// none was answered.
struct PollCounts {
    using Span = std::chrono::milliseconds;

    int Of(Fate fate) const { return Count.at(static_cast<std::size_t>(fate)); }
    int Asked() const;
    // Asked and neither open nor answered in time.
    int Lost() const { return Asked() - Of(Fate::Open) - Of(Fate::Answered); }

    std::array<int, FateCount> Count{};
    std::optional<Span> Last;
    std::optional<Span> Median;
    std::optional<Span> Within99;  // so long or shorter were 99 of a hundred answers
};

// Of fixed size, 12 kB, however long it goes on. Window thread only.
class PollRecord {
  public:
    using Moment = serial::Clock::time_point;
    using Span = PollCounts::Span;
    // An answer that takes longer is late.
    static constexpr Span LatestAnswer{1000};

    // Polls are counted from here on.
    void Restart() { *this = {}; }
    void Asked(Moment now);
    // What the open poll has come to now; nothing where none is open.
    void Became(Fate fate, Moment now);
    // When the open poll went out, if one is open.
    std::optional<Moment> OpenSince() const;

    PollCounts LastMinute(Moment now) const;
    PollCounts All() const;

  private:
    struct Poll {
        Moment At;
        Span Took{};
        Fate Is = Fate::Open;
    };
    // More than go out in a minute, at six a second.
    static constexpr std::size_t Remembered = 512;

    const Poll& Newest() const { return Polls[(Total - 1) % Remembered]; }
    void Close(Fate fate, Span took);

    std::array<Poll, Remembered> Polls{};  // a ring; the next goes to Total % Remembered
    std::size_t Total = 0;
    std::array<int, FateCount> Count{};                     // of all that are not open
    std::array<int, LatestAnswer.count() + 1> Responses{};  // answers of all, by milliseconds
    std::optional<Span> LastTook;
};

}  // namespace zps
