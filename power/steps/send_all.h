// Sends many steps to the supply, one after another, as clicks on their numbers would.
#pragma once

#include "power/link/held_steps.h"
#include "source/reply.h"
#include "source/timekeeper.h"

#include <deque>
#include <functional>
#include <memory>
#include <optional>
#include <utility>
#include <vector>

namespace zps {

// Each upload awaits its answer. The first step that is refused or not acknowledged ends it, and so
// do Cancel and an output that is not off any more. At the end the step is sent that was selected
// before, so that it is selected again; not onto an output that is on. Window thread only.
class SendAll {
  public:
    // What it moves and asks. `Upload` selects a step and sends all its values; it may throw, which
    // ends everything at once.
    struct Surround {
        const SOURCE& Source;
        const HeldSteps& Held;
        std::function<bool()> AnswerDue;  // the last frame may still be answered
        std::function<int()> Selected;
        std::function<void(int step)> Upload;
        std::function<bool()> OutputOff;
    };
    SendAll(Timekeeper& time, Surround around);

    // The steps that have values which were given by a person and which the supply has not got.
    std::vector<int> Unsent() const;

    // Sends those. Not while it runs.
    void Start();
    // No further step is sent but the one that was selected before.
    void Cancel();
    // Nothing is sent any more, and nothing told.
    void CallOff();
    bool Running() const { return tmrSEND->Enabled(); }

    // How it stands, and how it has ended.
    struct Report {
        int Of = 0;                 // so many steps were to be sent
        int Sent = 0;               // and so many have been acknowledged
        std::optional<int> Step{};  // the one under way
        bool Cancelled = false;
        bool OutputOn = false;          // it has ended because of that
        std::optional<int> Refused{};   // the first step that the supply did not take
        std::optional<Reply> Answer{};  // and what it said to it; none if it was not sent
        int Before = 0;                 // the step that was selected
        bool Reselected = false;        // it is selected again, with its values
    };
    // Called at the start and before each step, and once at the end.
    void OnProgress(std::function<void(const Report&)> told) { ToldProgress = std::move(told); }
    void OnEnd(std::function<void(const Report&)> told) { ToldEnd = std::move(told); }

  private:
    void tmrSEND_Timer();
    void JudgeAnswer();
    void NoteRefusal(int step, std::optional<Reply> answer);
    void SendNext();
    void DropRest();
    void End();
    bool IsHeld(int step) const { return Around.Source.StepFlag(step) && Around.Held.IsAt(step); }

    Surround Around;
    std::unique_ptr<Ticker> tmrSEND;
    std::deque<int> Queue;  // the last one is the step that was selected before
    Report Now;
    bool BeforeUnsent = false;  // it is one of those to be sent
    std::function<void(const Report&)> ToldProgress = [](const Report&) {};
    std::function<void(const Report&)> ToldEnd = [](const Report&) {};
};

}  // namespace zps
