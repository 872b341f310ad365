// How well the supply answers the polls of the main window, and how old its last reading is.
#pragma once

#include "source/reply.h"
#include "source/timekeeper.h"

#include <array>
#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

namespace zps {

// Counts from the last Restart on. Window thread only.
class LinkQuality {
  public:
    using Span = std::chrono::milliseconds;
    // What can be wrong with the answer to a poll.
    enum class Fault : std::uint8_t { Nothing, WrongLength, WrongHeader };
    // The polls, the good data replies to them, and how long these took; the times are empty
    // before the first.
    struct Exchanges {
        int Asked = 0;
        int Answered = 0;
        std::optional<Span> Last;
        std::optional<Span> Median;  // of the last 256
    };

    // `outputOn` tells whether the output is believed on. Both outlive this.
    LinkQuality(const Timekeeper& time, std::function<bool()> outputOn);

    // The operator is about to switch the output on: all counts are 0.
    void Restart();
    // An output period begins.
    void OutputWentOn();
    // A poll is out.
    void Asked();
    // A receive event that found `length` bytes where a data reply was expected. Returns whether it
    // brings a reading: one to a poll that went out longer than LatestAnswer ago, as it may be
    // behind a message box, proves only that the supply answers.
    bool Answered(Reply result, std::size_t length);

    // Empty until the first Restart or the first such fault.
    std::optional<int> Count(Fault fault) const;
    Exchanges Polled() const;
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
    static constexpr Span LatestAnswer{1000};
    // The polls are never further apart than this while they go on.
    static constexpr Span LongestGap{1500};

  private:
    static constexpr std::size_t Remembered = 256;

    Span Since(serial::Clock::time_point moment) const;
    void NoteFault(std::size_t length);
    std::optional<Span> Median() const;

    const Timekeeper& Time;
    std::function<bool()> OutputOn;
    std::array<std::optional<int>, 3> Faults;  // by Fault
    int AskedCount = 0;
    std::array<Span, Remembered> Responses{};  // a ring; the next goes to Taken % Remembered
    std::size_t Taken = 0;
    std::optional<serial::Clock::time_point> AskedAt;  // until its answer
    serial::Clock::time_point LastAsked;
    std::optional<serial::Clock::time_point> UnansweredFrom;  // the first poll without one
    serial::Clock::time_point Begun;                          // the present output period
    std::optional<serial::Clock::time_point> FreshAt;         // the last good reply of the period
};

}  // namespace zps
