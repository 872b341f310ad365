#include "power/steps/entries.h"

#include <utility>

namespace zps {

void Entries::Connect(EntryField& field, const EntryField::Events& own) {
    const auto run = [this](auto handler) {
        return [this, handler] { Parts.Events.Run(handler); };
    };
    EntryField::Events events;
    events.GotFocus = run([this, &field] { Field_GotFocus(field); });
    events.LostFocus = run(own.LostFocus);
    if (own.Change) events.Change = run(own.Change);
    events.Committed = run([commit = own.Committed, &field] {
        commit();
        field.selectAll();
    });
    events.Cancelled = run([this, &field] {
        field.setText(QString::fromStdString(Parts.Source.OldText));
        field.selectAll();
    });
    if (own.KeyPress) {
        events.KeyPress = [this, press = own.KeyPress](QChar key) {
            Parts.Events.Run([&press, key] { press(key); });
        };
    }
    events.Refocusing = [this] { return Refusing; };
    field.SetEvents(std::move(events));
}

bool Entries::CommitOpenEntry() {
    const int refusals = Refusals;
    auto* field = dynamic_cast<EntryField*>(Parts.Window.focusWidget());
    Parts.Controls.cmdFOCUS->setFocus();
    if (field != nullptr && field != Parts.Window.focusWidget()) field->Leave();
    return refusals == Refusals;
}

bool Entries::CommitAll() {
    return CommitOpenEntry() && Parts.Window.focusWidget() != Parts.Controls.txtPAUTOSTEP;
}

void Entries::Refuse(EntryField& field, const Message& message) {
    ++Refusals;
    Refusing = true;
    Parts.Boxes.Show(&Parts.Window, message);
    Refusing = false;
    Refused = &field;
    Parts.State.RefocusPending = true;
    field.setFocus();
    field.selectAll();
    // Where the field has not been left no event will come to use the mark up.
    if (field.Entered()) Parts.State.RefocusPending = false;
}

void Entries::Field_GotFocus(const EntryField& field) {
    const bool back = Parts.State.RefocusPending && &field == Refused;
    if (!back) Parts.Source.OldText = field.text().toStdString();
    Parts.State.RefocusPending = false;
}

}  // namespace zps
