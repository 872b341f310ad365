// The switches that only send their letter: automatic run, remote sensing, over-current protection.
#pragma once

#include "power/link/history.h"
#include "power/panel/functions.h"
#include "power/panel/power_parts.h"
#include "power/steps/commands.h"

#include <array>
#include <functional>

namespace zps {

class FunctionSwitches {
  public:
    // `changed` is told after a flag has changed.
    FunctionSwitches(PowerParts& parts, Commands& commands, History& happened,
                     std::function<void()> changed);

    bool AutoOn() const { return Flags[0].On; }

    // The supply has its functions switched off.
    void Reset();
    // The supply has reported this status byte; `polled` tells whether it is asked again by itself.
    void Reported(std::uint8_t bits, bool polled);
    // No report follows by itself: what the last one told otherwise is marked.
    void PollsEnded();

  private:
    struct Flag {
        bool On = false;           // as it was asked for
        int DifferentReports = 0;  // reports in a row that tell otherwise
    };
    void Toggle(std::size_t place);

    PowerParts& Parts;
    History& Happened;
    std::function<void()> Changed;
    std::array<Flag, PlainFunctionCount> Flags;
};

}  // namespace zps
