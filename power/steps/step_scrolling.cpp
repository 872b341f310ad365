#include "power/steps/step_scrolling.h"

#include <utility>

namespace zps {

StepScrolling::StepScrolling(PowerParts& parts, const Gate& gate, StepList& rows, Entries& fields,
                             std::function<void()> scrolled)
    : Parts(parts), Door(gate), Rows(rows), Fields(fields), Scrolled(std::move(scrolled)) {
    StepScrollBar& bar = *Parts.Controls.vscAUTOSTEP;
    bar.MayScroll = [this] {
        bool may = false;
        Parts.Events.Run([&] { may = MayScroll(); });
        return may;
    };
    QObject::connect(&bar, &QScrollBar::valueChanged, &bar,
                     [this] { Parts.Events.Run([this] { vscAUTOSTEP_Change(); }); });
}

// An open entry belongs to the step that it was typed for. A key comes only to a bar that has the
// focus itself, and leaves it there for the next one: no entry is open then.
bool StepScrolling::MayScroll() {
    return Door.Open() && Parts.Controls.vscAUTOSTEP->isEnabled() &&
           (Fields.Open() == nullptr || Fields.Commit());
}

void StepScrolling::vscAUTOSTEP_Change() {
    StepScrollBar& bar = *Parts.Controls.vscAUTOSTEP;
    const int top = bar.value();
    if (top == Rows.TopStep()) return;
    if (!MayScroll()) {
        bar.setValue(Rows.TopStep());
        return;
    }
    Rows.ShowSteps(top);
    Rows.Highlight(Rows.CurStep());
    Scrolled();
}

}  // namespace zps
