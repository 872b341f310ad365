// What is said about the link: whether the supply answers the polls.
#pragma once

#include "power/link/link_quality.h"
#include "source/timekeeper.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>

namespace zps {

enum class Pulse : std::uint8_t {
    NotPolled,
    Awaited,  // the output has just gone on, and no good answer has come yet
    Answers,
    Late,
    Paused,  // the panel has stopped asking: a message box is up
    Gone,
};

// Follows the age of the reading while the output is on; between two changes of what is said it
// tells nobody anything. Window thread only.
class LinkWatch {
  public:
    struct View {
        Pulse State = Pulse::NotPolled;
        // The age, never less than it is: in steps of 0.2 s, so that a supply that answers every
        // poll shows a figure that stands still, and in whole seconds from 3 s on.
        std::chrono::milliseconds Age{0};
        bool operator==(const View&) const = default;
    };

    // `quality` outlives this. The tickers of `time` must tick while a message box is up as well:
    // just then nothing is polled.
    LinkWatch(const LinkQuality& quality, Timekeeper& time);

    // The output has been switched.
    void Look();
    const View& Seen() const { return Shown; }

    // Called after each change of what is seen.
    void OnChange(std::function<void()> told) { Told = std::move(told); }
    // Called when the answers have stayed away, and when they are back, with how long they were
    // away. Not when the output goes off in between.
    void OnLost(std::function<void()> told) { ToldLost = std::move(told); }
    void OnBack(std::function<void(std::chrono::seconds away)> told) { ToldBack = std::move(told); }

  private:
    View ViewNow() const;

    const LinkQuality& Quality;
    std::unique_ptr<Ticker> tmrLINK;
    View Shown;
    bool Lost = false;  // told lost, and no answer since; also while the polls pause
    std::function<void()> Told = [] {};
    std::function<void()> ToldLost = [] {};
    std::function<void(std::chrono::seconds)> ToldBack = [](auto) {};
};

}  // namespace zps
