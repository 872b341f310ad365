#include "power/steps/step_upload.h"

#include "power/steps/live_text.h"
#include "power/steps/messages.h"
#include "source/numbers.h"

#include <utility>

namespace zps {

StepUpload::StepUpload(PowerParts& parts, Commands& commands, Surround around)
    : Parts(parts), Around(std::move(around)) {
    for (int row = 0; row < RowCount; ++row) {
        QPushButton& button = *Parts.Controls.txPSTEP.at(static_cast<std::size_t>(row));
        commands.Connect(button, [this, row] { txPSTEP_Click(row); });
    }
}

void StepUpload::txPSTEP_Click(int row) {
    const int step = Around.Rows.StepOf(row);
    if (step == Around.Rows.CurStep()) return;
    if (!Parts.Source.RatingsKnown()) {
        Parts.Boxes.Show(&Parts.Window, UnknownRatings());
        return;
    }
    if (!Around.OutputOn()) {
        Send(step);
        return;
    }
    const Frame frame = SelectStepFrame(Parts.Source.PowerAddr, step);
    Select(step);
    Around.Held.Select(step, {}, frame);
    Around.Happened.Note(EventKind::Switched, LiveText(Parts.Source, step, AllValues()));
}

void StepUpload::SendTopStep() {
    constexpr int TopRow = 0;
    Send(Around.Rows.StepOf(TopRow));
    Around.Rows.Highlight(0);  // a step that starts further down is shown as held
}

void StepUpload::Select(int step) {
    Around.Polls.Stop();
    Around.Rows.Select(step);
    Parts.Controls.txtSTEP->setText(QString::fromStdString(FormatStep(step)));
    Around.Lock.ReleaseEditLock();
}

void StepUpload::Send(int step) {
    // What can't be sent must not be shown as selected or held.
    const Frame frame = UploadFrame(Parts.Source.PowerAddr, step, Parts.Source.WireOf(step));
    Select(step);
    Around.Shown.ShowStep(step);
    Around.Held.Select(step, AllValues(), frame);
}

}  // namespace zps
