// The order in which the supply runs its steps by itself, and how often.
#pragma once

#include "power/power_parts.h"
#include "power/step_entry.h"

namespace zps {

class AutoSequence {
  public:
    AutoSequence(PowerParts& parts, StepEntry& entry);

  private:
    void Connect(EntryField& field, void (AutoSequence::*lostFocus)());
    void txtPAUTOSTEP_Change();
    void txtPAUTOSTEP_KeyPress(QChar key);
    void txtPAUTOSTEP_LostFocus();
    void txtPAUTOCOUNT_LostFocus();
    void ShowUnsentSteps();

    PowerParts& Parts;
    StepEntry& Entry;
};

}  // namespace zps
