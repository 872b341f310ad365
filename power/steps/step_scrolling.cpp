#include "power/steps/step_scrolling.h"

namespace zps {

StepScrolling::StepScrolling(PowerParts& parts, StepList& rows, EditLock& lock, Entries& fields)
    : Parts(parts), Rows(rows), Lock(lock), Fields(fields) {
    StepScrollBar& bar = *Parts.Controls.vscAUTOSTEP;
    bar.MayScroll = [this] {
        bool may = false;
        Parts.Events.Run([&] { may = Fields.CommitOpenEntry(); });
        return may;
    };
    QObject::connect(&bar, &QScrollBar::valueChanged, &bar,
                     [this] { Parts.Events.Run([this] { vscAUTOSTEP_Change(); }); });
}

void StepScrolling::vscAUTOSTEP_Change() {
    StepScrollBar& bar = *Parts.Controls.vscAUTOSTEP;
    const int top = bar.value();
    if (top == Rows.TopStep()) return;
    const bool byKey = bar.hasFocus();
    if (!byKey && !Fields.CommitOpenEntry()) {
        bar.setValue(Rows.TopStep());
        return;
    }
    Rows.ShowSteps(top);
    Parts.Source.PaintStepRows(Parts.State.CurStep);
    Lock.ScrolledTo();
}

}  // namespace zps
