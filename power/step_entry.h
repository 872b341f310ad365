// Entry of a step's values: what happens while a field has the focus, and when it loses it.
#pragma once

#include "power/edit_lock.h"
#include "power/power_parts.h"
#include "power/step_fields.h"
#include "power/step_list.h"

namespace zps {

class StepEntry {
  public:
    StepEntry(PowerParts& parts, StepList& rows, EditLock& lock);

    // Gives the focus to cmdFOCUS, which commits an open entry. False if the entry was refused: the
    // focus is back in its field then, and what the operator wanted to do must not be done.
    bool CommitOpenEntry();

    // An entry was out of range: shows `message`, and gives `field` the focus with its text
    // selected.
    void Refuse(EntryField& field, const Message& message);

    // The handlers that every entry field of the window shares.
    void Field_GotFocus(const EntryField& field);
    bool Refocusing() const { return Refusing; }

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
    int Refusals = 0;
    bool Refusing = false;                // the message about an entry in error is up
    const EntryField* Refused = nullptr;  // the field that RefocusPending is about
};

}  // namespace zps
