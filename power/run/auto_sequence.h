// The order in which the supply runs its steps by itself, and how often.
#pragma once

#include "power/panel/power_parts.h"
#include "power/steps/entries.h"

namespace zps {

class AutoSequence {
  public:
    AutoSequence(PowerParts& parts, Entries& fields);

  private:
    void txtPAUTOSTEP_Change();
    void txtPAUTOSTEP_KeyPress(QChar key);
    void txtPAUTOSTEP_LostFocus();
    void txtPAUTOCOUNT_LostFocus();
    void ShowUnsentSteps();

    PowerParts& Parts;
    Entries& Fields;
};

}  // namespace zps
