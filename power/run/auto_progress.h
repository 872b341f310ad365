// Where a run of the output is: the step that the supply is at, and in an automatic run the cycle
// and the end that can be expected.
#pragma once

#include "source/step_table.h"
#include "source/timekeeper.h"

#include <chrono>
#include <functional>
#include <optional>
#include <utility>
#include <vector>

namespace zps {

// Knows what the supply was sent and what it reports, and claims nothing beyond that: cycles are
// counted by watching the reported step go round the sequence, and the end is an estimate from the
// times of the steps, corrected each time that the step changes. Window thread only.
class AutoProgress {
  public:
    // `table` is asked for the steps' times. Both outlive this.
    AutoProgress(const StepTable& table, const Timekeeper& time) : Table(table), Time(time) {}

    // The supply has been sent this sequence, and how often to go through it. What 0 times means
    // is the supply's affair.
    void SequenceSent(std::vector<int> steps) { Sequence = std::move(steps); }
    void CountSent(int cycles) { Cycles = cycles; }
    // It has refused them: what it has now, nobody knows.
    void SequenceRefused();
    void CountRefused();
    // Another supply, or one that has been reset.
    void Forget();

    // The output has gone on, in automatic mode or not; or off.
    void OutputSwitched(bool on, bool automatic);
    // A reading names the step that the supply is at.
    void Reported(int step);

    // The step that the supply has last reported while the output is on.
    std::optional<int> RunningStep() const { return Running; }

    struct Cycle {
        int Now;                // 1 for the first
        std::optional<int> Of;  // none where nobody can know
        bool operator==(const Cycle&) const = default;
    };
    // The cycle of an automatic run. None in any other run, and where the steps are too short to be
    // watched or do not follow the sequence.
    std::optional<Cycle> RunningCycle() const;
    // When the automatic run should end; an estimate, to be shown as one. None where nobody can
    // know: without a count, or where the supply does not hold the times that the table has.
    std::optional<serial::Clock::time_point> EstimatedEnd() const;

    // Called when any of the three may have changed: never for a reading that tells nothing new.
    void OnChange(std::function<void()> told) { Told = std::move(told); }

  private:
    using Seconds = std::chrono::duration<double>;

    void Begin();
    void Follow(int step);
    void Estimate();
    bool CanBeWatched() const;

    const StepTable& Table;
    const Timekeeper& Time;
    std::vector<int> Sequence;
    int Cycles = 0;

    bool On = false;
    std::optional<int> Running;
    std::vector<Seconds> Times;  // of the steps of the sequence in an automatic run; else none
    bool Watched = false;        // the reported steps tell the place
    std::size_t Place = 0;       // steps since the start of the run
    std::optional<serial::Clock::time_point> End;
    std::function<void()> Told = [] {};
};

}  // namespace zps
