// The order in which the supply runs its steps by itself, and how often.
#pragma once

#include "power/run/auto_progress.h"
#include "power/steps/entries.h"

#include <QString>

namespace zps {

class AutoSequence {
  public:
    // `progress` is told what is sent.
    AutoSequence(PowerParts& parts, Entries& fields, AutoProgress& progress);

    // The supply has been initialised: it has no sequence and no count any more, and the boxes show
    // none.
    void Reset();
    // The boxes stay readable while they are locked, also in other colours of the desktop.
    void Repaint();

  private:
    void txtPAUTOSTEP_Change();
    void txtPAUTOSTEP_KeyPress(QChar key);
    void txtPAUTOSTEP_LostFocus();
    void txtPAUTOCOUNT_LostFocus();
    void ShowUnsentSteps(const QString& sequence);

    PowerParts& Parts;
    Entries& Fields;
    AutoProgress& Progress;
    QString Told;  // the sequence about whose unsent steps the operator has been told
};

}  // namespace zps
