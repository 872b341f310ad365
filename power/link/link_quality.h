// How well the supply answers the polls of the main window, and how old its last reading is.
#pragma once

#include "power/link/poll_record.h"
#include "source/reply.h"
#include "source/timekeeper.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace zps {

// The counts of the run are those from the last Restart on. Window thread only.
class LinkQuality {
  public:
    using Span = std::chrono::milliseconds;

    // `outputOn` tells whether the output is believed on. Both outlive this.
    LinkQuality(const Timekeeper& time, std::function<bool()> outputOn);

    // The operator is about to switch the output on: a run begins, and all its counts are 0.
    void Restart();
    // An output period begins.
    void OutputWentOn();
    // A poll is out.
    void Asked();
    // A frame that is no poll has gone out, or the polls have ended: an open poll gets no answer.
    void Overtaken();
    // A receive event that found `length` bytes where a data reply was expected. Returns whether it
    // brings a reading: one to a poll that went out longer than LatestAnswer ago, as it may be
    // behind a message box, proves only that the supply answers.
    bool Answered(Reply result, std::size_t length);

    // Answers that were none: Empty, WrongLength and WrongHeader, also where no poll was open.
    // Empty until the first Restart or the first such fault.
    std::optional<int> Count(Fate fault) const {
        return Faults.at(static_cast<std::size_t>(fault));
    }
    // All polls of the last minute, and those of the run.
    PollCounts LastMinute() const { return Polls.LastMinute(Time.Now()); }
    PollCounts WholeRun() const { return Polls.All(); }
    // Time since the last good data reply of the present output period, or since the output went on
    // if none has come yet. Empty while the output is off and so nothing is polled.
    std::optional<Span> ReadingAge() const;
    // Whether a good data reply of the present output period has come.
    bool HasReading() const { return FreshAt.has_value(); }
    // Time since the last poll or the beginning of the period: nothing is asked while a message box
    // is up, and the age of the reading then says nothing about the supply.
    Span SinceAsked() const { return Since(LastAsked); }
    // How long polls have been going out without a good answer; empty where there is none to wait
    // for. Begins anew behind a pause of the polls.
    std::optional<Span> UnansweredFor() const;
    static constexpr Span LatestAnswer = PollRecord::LatestAnswer;
    // The polls are never further apart than this while they go on.
    static constexpr Span LongestGap{1500};

  private:
    Span Since(serial::Clock::time_point moment) const;
    void NoteFault(std::size_t length);

    const Timekeeper& Time;
    std::function<bool()> OutputOn;
    std::array<std::optional<int>, FateCount> Faults;  // by Fate
    PollRecord Polls;
    serial::Clock::time_point LastAsked;
    std::optional<serial::Clock::time_point> UnansweredFrom;  // the first poll without one
    serial::Clock::time_point Begun;                          // the present output period
    std::optional<serial::Clock::time_point> FreshAt;         // the last good reply of the period
};

}  // namespace zps
