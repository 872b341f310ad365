#include "power/steps/step_entry.h"

#include "source/numbers.h"

namespace zps {

namespace {

// Ratings are single-precision values; the bounds in seconds are exact.
bool OutOfRange(const StepField& kind, const SOURCE& source, double value) {
    const double compared = kind.Smallest > 0 ? value : ToSingle(value);
    return value < 0 || compared > kind.Bound(source) || (value > 0 && value < kind.Smallest);
}

Message RangeMessage(const StepField& kind, const SOURCE& source) {
    return {MessageIcon::Information, QString::fromUtf8(kind.Title),
            QString::fromUtf8(kind.FirstLine) + QStringLiteral("\r\n설정값 범위=0~") +
                QString::fromStdString(ShortestText(kind.Bound(source))) +
                QString::fromUtf8(kind.Unit)};
}

}  // namespace

StepEntry::StepEntry(PowerParts& parts, StepList& rows, EditLock& lock, Entries& fields)
    : Parts(parts), Rows(rows), Lock(lock), Fields(fields) {
    for (const StepField& kind : StepFields()) {
        for (int row = 0; row < RowCount; ++row) Connect(kind, row);
    }
}

void StepEntry::Connect(const StepField& kind, int row) {
    EntryField& field = *(Parts.Controls.*kind.Fields).at(static_cast<std::size_t>(row));
    EntryField::Events events;
    events.Change = [this, &field, row] { Field_Change(field, row); };
    events.LostFocus = [this, &kind, row] { Field_LostFocus(kind, row); };
    events.Committed = [this, &kind, row] { Field_Committed(kind, row); };
    Fields.Connect(field, events);
}

void StepEntry::Field_Change(const EntryField& field, int row) {
    const bool changed =
        LeadingNumber(field.text().toStdString()) != LeadingNumber(Parts.Source.OldText);
    if (Parts.State.OutputOn) {
        changed ? Lock.LockToCurrentStep() : Lock.ReleaseEditLockOutputOn();
    } else {
        changed ? Lock.LockToRow(row) : Lock.ReleaseEditLock();
    }
}

void StepEntry::Field_LostFocus(const StepField& kind, int row) {
    EntryField& field = *(Parts.Controls.*kind.Fields).at(static_cast<std::size_t>(row));
    if (field.text().toStdString() == Parts.Source.OldText) return;
    if (field.text().isEmpty()) field.setText(QStringLiteral("0"));
    const double value = LeadingNumber(field.text().toStdString());
    if (OutOfRange(kind, Parts.Source, value)) {
        Fields.Refuse(field, RangeMessage(kind, Parts.Source));
    } else {
        Store(kind, field, row, value);
    }
}

void StepEntry::Field_Committed(const StepField& kind, int row) {
    Field_LostFocus(kind, row);
    EntryField& field = *(Parts.Controls.*kind.Fields).at(static_cast<std::size_t>(row));
    if (!OutOfRange(kind, Parts.Source, LeadingNumber(field.text().toStdString()))) {
        Parts.Source.OldText = field.text().toStdString();
    }
}

void StepEntry::Store(const StepField& kind, EntryField& field, int row, double value) {
    const std::string text = kind.Format(Parts.Source, value);
    field.setText(QString::fromStdString(text));
    const auto step = static_cast<std::size_t>(Rows.TopStep() + row);
    (Parts.Source.*kind.Texts).at(step) = text;
    if (static_cast<int>(step) == Parts.State.CurStep) {
        SendToSelectedStep(kind, field);
    } else if (!Parts.State.OutputOn) {
        Parts.Source.StepFlag.at(step) = false;
    }
}

void StepEntry::SendToSelectedStep(const StepField& kind, const EntryField& field) {
    const bool rated = Parts.Source.RatingsKnown();
    if (rated && Parts.Line.PortOpen())
        Parts.Held.Mark(Parts.State.CurStep);
    else
        Parts.Held.Unsent(Parts.State.CurStep);
    Parts.State.OutputOn ? Lock.ReleaseEditLockOutputOn() : Lock.ReleaseEditLock();
    if (!rated) return;
    if (kind.ReadOut != nullptr) (Parts.Controls.*kind.ReadOut)->setText(field.text());
    if (kind.StopsPolling) Parts.Timers.tmrDLE.SetEnabled(false);
    kind.Send(Parts.Source, Parts.Line, field.text().toStdString());
}

}  // namespace zps
