// The order in which the supply runs its steps by itself, and how often.
#pragma once

#include "power/steps/entries.h"

#include <QString>

#include <vector>

namespace zps {

class AutoSequence {
  public:
    AutoSequence(PowerParts& parts, Entries& fields);

    // The sequence and the count as they were sent last; no steps, and 0, before that.
    const std::vector<int>& Steps() const { return SentSteps; }
    int Cycles() const { return SentCount; }
    // The supply has its sequence emptied.
    void Forget() { SentSteps.clear(); }

  private:
    void txtPAUTOSTEP_Change();
    void txtPAUTOSTEP_KeyPress(QChar key);
    void txtPAUTOSTEP_LostFocus();
    void txtPAUTOCOUNT_LostFocus();
    void ShowUnsentSteps(const QString& sequence);

    PowerParts& Parts;
    Entries& Fields;
    std::vector<int> SentSteps;
    int SentCount = 0;
    QString Told;  // the sequence about whose unsent steps the operator has been told
};

}  // namespace zps
