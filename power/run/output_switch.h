// The output switch.
#pragma once

#include "power/link/awaited_answer.h"
#include "power/link/held_steps.h"
#include "power/link/history.h"
#include "power/link/polling.h"
#include "power/log/measurement_log.h"
#include "power/panel/gate.h"
#include "power/panel/power_parts.h"
#include "power/panel/read_outs.h"
#include "power/run/output.h"
#include "power/run/step_start.h"
#include "power/steps/commands.h"
#include "power/steps/edit_lock.h"
#include "power/steps/step_list.h"
#include "serial/event_loop.h"
#include "serial/port.h"
#include "source/reply.h"

namespace zps {

// Switches off at once, whatever stands in an entry field. Switches on within a second of the click
// or not at all; where it did not, the line of the last event says why.
class OutputSwitch {
  public:
    struct Surround {
        Gate& Door;
        Entries& Fields;
        Output& Out;
        History& Happened;
        StepStart& Start;
        Polling& Polls;
        LinkQuality& Quality;
        ReadOuts& Shown;
        EditLock& Lock;
        StepList& Rows;
        HeldSteps& Held;
        AwaitedAnswer& Answer;
        serial::Port& Port;  // that the frames leave by
        MeasurementLog& Log;
        serial::EventLoop& Loop;
    };
    OutputSwitch(PowerParts& parts, Commands& commands, const Surround& around);

  private:
    void cmdOUTPUT_Click();
    void SwitchOff();
    void JudgeOff(Reply result);
    void SwitchOn(serial::Clock::time_point deadline);
    // Says that the supply has not got all that the table shows for `step`.
    void NoteMissingValues(int step);
    // Lets a reply in progress come. Empty, or why the output must not go on.
    QString WaitForReplyInProgress(serial::Clock::time_point deadline);
    void Send(bool on);

    PowerParts& Parts;
    Surround Around;
};

}  // namespace zps
