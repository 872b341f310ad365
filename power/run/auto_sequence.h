// The order in which the supply runs its steps by itself, and how often.
#pragma once

#include "power/steps/entries.h"

#include <QString>

namespace zps {

class AutoSequence {
  public:
    AutoSequence(PowerParts& parts, Entries& fields);

  private:
    void txtPAUTOSTEP_Change();
    void txtPAUTOSTEP_KeyPress(QChar key);
    void txtPAUTOSTEP_LostFocus();
    void txtPAUTOCOUNT_LostFocus();
    void ShowUnsentSteps(const QString& sequence);

    PowerParts& Parts;
    Entries& Fields;
    QString Told;  // the sequence about whose unsent steps the operator has been told
};

}  // namespace zps
