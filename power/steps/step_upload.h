// Selection and upload of a step.
#pragma once

#include "power/link/held_steps.h"
#include "power/link/history.h"
#include "power/link/polling.h"
#include "power/panel/power_parts.h"
#include "power/panel/read_outs.h"
#include "power/steps/commands.h"
#include "power/steps/edit_lock.h"
#include "power/steps/step_list.h"

#include <functional>

namespace zps {

class StepUpload {
  public:
    struct Surround {
        StepList& Rows;
        EditLock& Lock;
        HeldSteps& Held;
        Polling& Polls;
        ReadOuts& Shown;
        History& Happened;
        std::function<bool()> OutputOn;
    };
    StepUpload(PowerParts& parts, Commands& commands, Surround around);

    // Makes `step` the selected one and sends all its values, with the output off. The ratings are
    // known and no entry is open.
    void Send(int step);

    // Sends the step in the top row to a supply that has just gone under remote control. The
    // ratings are known and no entry is open.
    void SendTopStep();

  private:
    // Makes the row's step the selected one: with the output off the supply gets all its values,
    // with the output on it is told to go to it.
    void txPSTEP_Click(int row);
    void Select(int step);

    PowerParts& Parts;
    Surround Around;
};

}  // namespace zps
