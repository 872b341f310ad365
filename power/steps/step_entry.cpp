#include "power/steps/step_entry.h"

#include "power/steps/live_text.h"
#include "power/steps/messages.h"
#include "source/numbers.h"

namespace zps {

namespace {

Message RangeMessage(const StepField& kind, const SOURCE& source) {
    return {MessageIcon::Information, QString::fromUtf8(kind.Title),
            QString::fromUtf8(kind.FirstLine) + QStringLiteral("\r\n설정값 범위=0~") +
                QString::fromStdString(ShortestText(kind.Bound(source))) +
                QString::fromUtf8(kind.Unit)};
}

}  // namespace

StepEntry::StepEntry(PowerParts& parts, Surround around) : Parts(parts), Around(std::move(around)) {
    for (const StepField& kind : StepFields()) {
        for (int row = 0; row < RowCount; ++row) Connect(kind, row);
    }
}

EntryField& StepEntry::FieldOf(const StepField& kind, int row) const {
    return *(Parts.Controls.*kind.Fields).at(static_cast<std::size_t>(row));
}

void StepEntry::Connect(const StepField& kind, int row) {
    EntryField& field = FieldOf(kind, row);
    Entries::Rules rules;
    rules.Change = [this, &field, row] { Field_Change(field, row); };
    rules.LostFocus = [this, &kind, row] { Field_LostFocus(kind, row); };
    rules.Committed = [this, &kind, row] { Field_Committed(kind, row); };
    Around.Fields.Connect(field, std::move(rules));
}

void StepEntry::Field_Change(const EntryField& field, int row) {
    LockIfChanged(LeadingNumber(field.text().toStdString()), row);
}

void StepEntry::LockIfChanged(double value, int row) {
    if (value == LeadingNumber(Around.Fields.TextBefore())) {
        Around.Lock.ReleaseEditLock();
    } else if (Around.OutputOn()) {
        Around.Lock.LockToCurrentStep();
    } else {
        Around.Lock.LockToRow(row);
    }
}

void StepEntry::Field_LostFocus(const StepField& kind, int row) {
    if (FieldOf(kind, row).text().toStdString() != Around.Fields.TextBefore()) Take(kind, row);
}

void StepEntry::Field_Committed(const StepField& kind, int row) {
    const EntryField& field = FieldOf(kind, row);
    if (field.text().toStdString() != Around.Fields.TextBefore()) {
        if (Take(kind, row)) Around.Fields.Accept(field);
        return;
    }
    const int step = Around.Rows.StepOf(row);
    const bool refused = (Around.Held.Refused(step) & Only(kind.Value)).any();
    if (refused && step == Around.Rows.CurStep()) Send(kind);
}

bool StepEntry::Take(const StepField& kind, int row) {
    EntryField& field = FieldOf(kind, row);
    if (!Parts.Source.RatingsKnown()) {
        Around.Fields.Restore(field, UnknownRatings());
        return false;
    }
    if (field.text().isEmpty()) field.Write(QStringLiteral("0"));
    const double value = LeadingNumber(field.text().toStdString());
    if (OutOfRange(kind, Parts.Source, value)) {
        Around.Fields.Refuse(field, RangeMessage(kind, Parts.Source));
        return false;
    }
    const Figure shown = kind.Format(Parts.Source, value);
    field.Write(QString::fromStdString(shown.Text));
    LockIfChanged(shown.Value, row);
    Store(kind, row, shown);
    return true;
}

void StepEntry::Store(const StepField& kind, int row, const Figure& shown) {
    const int step = Around.Rows.StepOf(row);
    Parts.Source.StoreStep(kind.Value, step, shown);
    if (step == Around.Rows.CurStep()) {
        Around.Shown.ShowValue(kind.Value, shown.Text);
        Around.Lock.ReleaseEditLock();
        Send(kind);
    } else if (!Around.OutputOn()) {
        Around.Held.Changed(step, kind.Value);
    }
}

void StepEntry::Send(const StepField& kind) {
    if (!Parts.Source.RatingsKnown()) return;
    const int step = Around.Rows.CurStep();
    const int address = Parts.Source.PowerAddr;
    const Bytes& wire = Parts.Source.Wire(kind.Value, step);
    if (kind.StopsPolling) Around.Polls.Stop();
    if (Around.Held.IsAt(step)) {
        Around.Held.Send(step, Only(kind.Value), ValueFrame(address, kind.Value, wire));
    } else {  // alone it would go to the step that the supply is at, perhaps onto a live output
        Around.Held.Select(step, Only(kind.Value),
                           SelectingValueFrame(address, step, kind.Value, wire));
    }
    if (Around.OutputOn())
        Around.Happened.Note(EventKind::Switched, LiveText(Parts.Source, step, Only(kind.Value)));
}

}  // namespace zps
