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
    Late,       // a good data reply, too late to be a reading
    Overtaken,  // while the answer could still come, a command swept it away or the polls ended
};
constexpr std::size_t FateCount = 8;

// Polls by what became of them, and the response times of the answered ones; these are empty where
// none was answered.
struct PollCounts {
    using Span = std::chrono::milliseconds;

    int Of(Fate fate) const { return Count.at(static_cast<std::size_t>(fate)); }
    int Asked() const;
    // Those whose answers should have come and did not, or not in time.
    int Lost() const { return Asked() - Of(Fate::Open) - Of(Fate::Answered) - Of(Fate::Overtaken); }

    std::array<int, FateCount> Count{};
    std::optional<Span> Last;
    std::optional<Span> Median;
    std::optional<Span> Within99;  // so long or shorter were 99 of a hundred answers
};

// Of fixed size, 16 kB, however long it goes on. Window thread only.
class PollRecord {
  public:
    using Moment = serial::Clock::time_point;
    using Span = PollCounts::Span;
    // An answer that takes longer is late.
    static constexpr Span LatestAnswer{1000};

    // A run begins here. The last minute goes on, and so does an open poll, which is none of this
    // run.
    void Restart();
    void Asked(Moment now);
    // What the open poll has come to now; nothing where none is open.
    void Became(Fate fate, Moment now);
    // A command has gone out: an answer to the open poll that comes now can't be told from one to
    // the command. Where it is overdue the poll was unanswered already.
    void Overtaken(Moment now);
    // When the open poll went out, if one is open.
    std::optional<Moment> OpenSince() const;

    PollCounts LastMinute(Moment now) const;
    // Of the run.
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
    bool NewestInRun() const { return Total > RunFrom; }
    void Close(Fate fate, Span took);

    std::array<Poll, Remembered> Polls{};  // a ring; the next goes to Total % Remembered
    std::size_t Total = 0;
    std::size_t RunFrom = 0;                                // the first poll of the run
    std::array<int, FateCount> Count{};                     // of the run, without an open one
    std::array<int, LatestAnswer.count() + 1> Responses{};  // answers of the run, by milliseconds
    std::optional<Span> LastTook;
};

}  // namespace zps
