#include "power/steps/entries.h"

#include <QApplication>
#include <QMenuBar>

#include <utility>

namespace zps {

Entries::Entries(PowerParts& parts, const Gate& gate) : Parts(parts), Door(gate) {
    QObject::connect(qApp, &QApplication::focusChanged, &Context,
                     [this](QWidget* /*before*/, QWidget* now) {
                         Parts.Events.Run([this, now] { FocusMoved(now); });
                     });
}

Entries::~Entries() {
    for (const auto& [field, rules] : RulesOf) field->SetListener({});
}

void Entries::Connect(EntryField& field, Rules rules) {
    const Rules& own = RulesOf.emplace(&field, std::move(rules)).first->second;
    const auto run = [this](auto handler) {
        return [this, handler](auto... told) { Parts.Events.Run([&] { handler(told...); }); };
    };
    EntryField::Listener listener;
    listener.FocusIn = run([this, &field] { Field_FocusIn(field); });
    listener.FocusOut = run([this, &field](EntryField::Way way) { Field_FocusOut(field, way); });
    listener.Change = run([this, &field](const QString& before) { Field_Change(field, before); });
    listener.Committed = run([&own, &field] {
        own.Committed();
        field.selectAll();
    });
    listener.Cancelled = run([this, &field] {
        if (Entered == &field) Cancel();
    });
    if (own.KeyPress) listener.KeyPress = run(own.KeyPress);
    field.SetListener(std::move(listener));
}

void Entries::Field_FocusIn(EntryField& field) {
    if (Entered == &field || Refusing) return;  // the focus goes back to the field in error
    if (Entered != nullptr && (!Leave() || Entered != nullptr)) return;  // it has the focus back
    GotFocus(field);
    if (const auto& entered = RulesOf.at(&field).GotFocus) entered();
}

void Entries::Field_FocusOut(EntryField& field, EntryField::Way way) {
    if (Entered == &field && way == EntryField::Way::ByControl) Leave();
}

// Catches up where the focus has gone to another control by way of a menu.
void Entries::FocusMoved(QWidget* now) {
    const bool toControl =
        now != nullptr && now->window() == &Parts.Window && qobject_cast<QMenuBar*>(now) == nullptr;
    if (Entered != nullptr && toControl && now != Entered) Leave();
}

void Entries::Field_Change(EntryField& field, const QString& before) {
    if (Entered != &field && !TakeIn(field, before)) {
        field.Write(before);
        return;
    }
    if (const auto& change = RulesOf.at(&field).Change) change();
}

bool Entries::TakeIn(EntryField& field, const QString& before) {
    if (!Door.Open() || !field.isEnabled() || !Commit()) return false;
    GotFocus(field);
    OldText = before.toStdString();
    field.setFocus();
    return true;
}

void Entries::GotFocus(EntryField& field) {
    Entered = &field;
    if (!RefocusPending) OldText = field.text().toStdString();
    RefocusPending = false;
}

bool Entries::Leave() {
    const unsigned refusals = Refusals;
    EntryField& field = *std::exchange(Entered, nullptr);
    ++Leaves;
    field.deselect();  // before the rule: it may bring the focus back with the text selected
    Parts.Events.Run(RulesOf.at(&field).LostFocus);
    return refusals == Refusals;
}

bool Entries::Commit() {
    const unsigned refusals = Refusals;
    const unsigned leaves = Leaves;
    Parts.Controls.cmdFOCUS->setFocus();
    // In a window that is not active, or behind a menu, the toolkit does not tell of it.
    if (Entered != nullptr && leaves == Leaves) Leave();
    return refusals == Refusals;
}

void Entries::Cancel() {
    EntryField& field = *Entered;
    field.setText(QString::fromStdString(OldText));
    field.selectAll();
}

void Entries::Refuse(EntryField& field, const Message& message) {
    ShowRefusal(message);
    RefocusPending = true;
    ReturnTo(field);
}

void Entries::Restore(EntryField& field, const Message& message) {
    field.Write(QString::fromStdString(OldText));
    if (const auto& change = RulesOf.at(&field).Change) change();
    ShowRefusal(message);
}

void Entries::ShowRefusal(const Message& message) {
    ++Refusals;
    Refusing = true;
    Parts.Boxes.Show(&Parts.Window, message);
    Refusing = false;
}

void Entries::ReturnTo(EntryField& field) {
    GotFocus(field);
    field.setFocus();
    field.selectAll();
}

}  // namespace zps
