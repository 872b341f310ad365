#include "power/steps/step_upload.h"

#include "source/numbers.h"
#include "source/step_frame.h"

namespace zps {

StepUpload::StepUpload(PowerParts& parts, StepList& rows, EditLock& lock, Entries& fields)
    : Parts(parts), Rows(rows), Lock(lock), Fields(fields) {
    for (int row = 0; row < RowCount; ++row) {
        QPushButton* button = Parts.Controls.txPSTEP.at(static_cast<std::size_t>(row));
        QObject::connect(button, &QPushButton::clicked, button,
                         [this, row] { Parts.Events.Run([this, row] { txPSTEP_Click(row); }); });
    }
}

void StepUpload::txPSTEP_Click(int row) {
    if (!Fields.CommitOpenEntry()) return;
    const int step = Rows.TopStep() + row;
    if (step == Parts.State.CurStep) return;
    if (!Parts.Source.RatingsKnown()) {
        Parts.Boxes.Show(&Parts.Window, {MessageIcon::Information, QStringLiteral("STEP 설정 오류"),
                                         QStringLiteral("전원 장치의 정격을 읽지 못했습니다.\n"
                                                        "ZPS설정에서 DATA 확인을 먼저 하십시오.")});
        return;
    }
    if (Parts.State.OutputOn) {
        SelectRow(row);
        Lock.ReleaseEditLockOutputOn();
        Parts.Line.Send(SelectStepFrame(Parts.Source.PowerAddr, ButtonStep(row)), ExpectAck);
        return;
    }
    for (const auto& fields : {Parts.Controls.txPTIME, Parts.Controls.txPSLOPE}) {
        EntryField& field = *fields.at(static_cast<std::size_t>(row));
        Rows.WriteField(field, FormatSeconds(LeadingNumber(field.text().toStdString())));
    }
    Rows.KeepOldTextOfFocus();
    Frame frame = RowFrame(row);  // what can't be sent must not be shown as selected or held
    SelectRow(row);
    SendRow(row, std::move(frame));
}

void StepUpload::tmrSTART_Timer() {
    Parts.Timers.tmrSTART.SetEnabled(false);
    Parts.State.RunPhase = PowerState::PhaseIdle;
    if (!Fields.CommitOpenEntry() || !Parts.Source.RatingsKnown()) return;
    constexpr int TopRow = 0;
    Frame frame = RowFrame(TopRow);
    Parts.State.RunPhase = PowerState::PhaseStatusPoll;
    Parts.State.OutputOn = false;
    Parts.State.RefocusPending = false;
    SelectRow(TopRow);
    SendRow(TopRow, std::move(frame));
    Parts.Source.PaintStepRows(0);  // step 0 is highlighted; one that starts further down is held
}

int StepUpload::ButtonStep(int row) const {
    constexpr int LargestByte = 255;
    const QString caption = Parts.Controls.txPSTEP.at(static_cast<std::size_t>(row))->text();
    return StrictInteger(caption.toStdString(), 0, LargestByte);
}

Frame StepUpload::RowFrame(int row) const {
    return UploadFrame(Parts.Source.PowerAddr, ButtonStep(row), Rows.RowTexts(row),
                       Parts.Source.VoltScale, Parts.Source.CurrScale);
}

void StepUpload::SelectRow(int row) {
    const auto index = static_cast<std::size_t>(row);
    Parts.Timers.tmrDLE.SetEnabled(false);
    Parts.State.CurStep = static_cast<std::int16_t>(Rows.TopStep() + row);
    Parts.Source.PaintStepRows(Parts.State.CurStep);
    Parts.Controls.txtSTEP->setText(Parts.Controls.txPSTEP.at(index)->text());
}

void StepUpload::SendRow(int row, Frame frame) {
    const auto index = static_cast<std::size_t>(row);
    Parts.Held.Mark(Parts.State.CurStep);
    Lock.ReleaseEditLock();
    Parts.Controls.txtVOLT->setText(Parts.Controls.txPVOLT.at(index)->text());
    Parts.Controls.txtCURR->setText(Parts.Controls.txPCURR.at(index)->text());
    Parts.Line.Send(std::move(frame), ExpectAck);
}

}  // namespace zps
