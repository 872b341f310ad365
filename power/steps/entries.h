// What all entry fields of the main window have in common: an entry is committed before anything
// else is done, and one in error keeps the focus.
#pragma once

#include "power/panel/power_parts.h"

namespace zps {

class Entries {
  public:
    explicit Entries(PowerParts& parts) : Parts(parts) {}

    // Has `field` handle its events. `own` is what this field does with a change, a key, when it is
    // left (LostFocus) and on Enter (Committed); all else is the same for every field, and what
    // `own` says of it is not used. This object outlives the field's last event.
    void Connect(EntryField& field, const EntryField::Events& own);

    // Gives the focus to cmdFOCUS, which commits an open entry. False if the entry was refused: the
    // focus is back in its field then, and what the operator wanted to do must not be done.
    bool CommitOpenEntry();
    // For all but a click on a step: false also where the sequence box has the focus back, because
    // it names steps that the supply does not hold.
    bool CommitAll();

    // An entry was out of range: shows `message`, and gives `field` the focus with its text
    // selected.
    void Refuse(EntryField& field, const Message& message);

  private:
    void Field_GotFocus(const EntryField& field);

    PowerParts& Parts;
    int Refusals = 0;
    bool Refusing = false;                // the message about an entry in error is up
    const EntryField* Refused = nullptr;  // the field that RefocusPending is about
};

}  // namespace zps
