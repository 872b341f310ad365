// Entry of a step's values: what happens while a field has the focus, and when it loses it.
#pragma once

#include "power/panel/power_parts.h"
#include "power/steps/edit_lock.h"
#include "power/steps/entries.h"
#include "power/steps/step_fields.h"
#include "power/steps/step_list.h"

namespace zps {

class StepEntry {
  public:
    StepEntry(PowerParts& parts, StepList& rows, EditLock& lock, Entries& fields);

  private:
    void Connect(const StepField& kind, int row);
    void Field_Change(const EntryField& field, int row);
    void Field_LostFocus(const StepField& kind, int row);
    void Field_Committed(const StepField& kind, int row);
    void Store(const StepField& kind, EntryField& field, int row, double value);
    void SendToSelectedStep(const StepField& kind, const EntryField& field);

    PowerParts& Parts;
    StepList& Rows;
    EditLock& Lock;
    Entries& Fields;
};

}  // namespace zps
