// The order in which the supply runs its steps by itself, and how often.
#pragma once

#include "power/power_parts.h"
#include "power/step_entry.h"

#include <optional>
#include <vector>

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

// The step numbers of a sequence text such as "03>07>"; none where it is not made of two digits and
// a ">" each.
std::optional<std::vector<int>> ReadSequence(const QString& text);

}  // namespace zps
