// Entry of a step's values: what happens while a field has the focus, and when it loses it.
#pragma once

#include "power/link/held_steps.h"
#include "power/link/history.h"
#include "power/link/polling.h"
#include "power/panel/power_parts.h"
#include "power/panel/read_outs.h"
#include "power/steps/edit_lock.h"
#include "power/steps/entries.h"
#include "power/steps/step_fields.h"
#include "power/steps/step_list.h"

#include <functional>
#include <utility>

namespace zps {

class StepEntry {
  public:
    // What an entry moves. `OutputOn` tells whether the output is on.
    struct Surround {
        StepList& Rows;
        EditLock& Lock;
        Entries& Fields;
        HeldSteps& Held;
        Polling& Polls;
        ReadOuts& Shown;
        History& Happened;
        std::function<bool()> OutputOn;
    };
    StepEntry(PowerParts& parts, Surround around);

  private:
    void Connect(const StepField& kind, int row);
    void Field_Change(const EntryField& field, int row);
    // Locks the row if `value`, which its field has, is not the one that the field was entered
    // with; else releases the lock.
    void LockIfChanged(double value, int row);
    void Field_LostFocus(const StepField& kind, int row);
    void Field_Committed(const StepField& kind, int row);
    // Whether the text has been taken over.
    bool Take(const StepField& kind, int row);
    void Store(const StepField& kind, int row, const Figure& shown);
    void Send(const StepField& kind);
    EntryField& FieldOf(const StepField& kind, int row) const;

    PowerParts& Parts;
    Surround Around;
};

}  // namespace zps
