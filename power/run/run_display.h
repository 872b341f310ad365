// Shows on the plate what is known of the run: what the numbers are, how long the output has been
// on, what is set for them, and how far an automatic run has come.
#pragma once

#include "power/link/link_quality.h"
#include "power/panel/read_outs.h"
#include "power/panel/reading_badge.h"
#include "power/run/auto_progress.h"
#include "power/run/output.h"
#include "power/run/run_clock.h"
#include "power/steps/step_list.h"
#include "source/timekeeper.h"

#include <memory>
#include <optional>

namespace zps {

class RunDisplay {
  public:
    // Who is asked.
    struct Surround {
        const SOURCE& Source;
        const Output& Out;
        const ReadOuts& Shown;
        const StepList& Rows;
        const AutoProgress& Progress;
        const LinkQuality& Quality;
    };
    // `time` ticks also while a message box is up: an old number is marked then too.
    RunDisplay(PowerControls& controls, Timekeeper& time, const Surround& around);

    // The output is shown on or off now.
    void OutputChanged();
    // The numbers have been shown anew.
    void NumbersShown();
    // Anything else has changed; cheap where nothing has.
    void Refresh();

  private:
    QString AutoRun();
    void ShowSetValues();
    QString EstimatedEnd();

    PowerControls& Controls;
    Timekeeper& Time;
    Surround Around;
    RunClock Clock;
    std::optional<serial::Clock::time_point> EndShown;
    QString EndText;
    ReadingBadge Badge;
    std::unique_ptr<Ticker> tmrPLATE;  // while the output is shown on
};

}  // namespace zps
