// What all entry fields of the main window have in common: an entry that is open is committed
// before anything else is done, and one in error keeps the focus.
#pragma once

#include "power/panel/gate.h"
#include "power/panel/power_parts.h"

#include <functional>
#include <map>
#include <string>

namespace zps {

// A field is entered when it gets the focus from another control, and stays so until it has been
// left: a menu, a message box or another program in front leaves a half-typed value half-typed. At
// most one field is entered. Text that comes from outside (a screen reader) enters its field first.
class Entries {
  public:
    // What one field does by itself.
    struct Rules {
        std::function<void()> LostFocus;      // it has been left
        std::function<void()> Committed;      // Enter
        std::function<void()> GotFocus;       // the operator has entered it; may be empty
        std::function<void()> Change;         // may be empty
        std::function<void(QChar)> KeyPress;  // may be empty
    };

    Entries(PowerParts& parts, const Gate& gate);
    ~Entries();  // the fields live a little longer, and lose the focus then
    Entries(const Entries&) = delete;
    Entries& operator=(const Entries&) = delete;

    // From now on the events of `field` are handled here, while this object lives.
    void Connect(EntryField& field, Rules rules);

    // The field that is entered, or null.
    EntryField* Open() const { return Entered; }
    // How many entries have been refused since the start.
    unsigned RefusalCount() const { return Refusals; }
    // The text that it had when it was entered, or was last accepted with.
    const std::string& TextBefore() const { return OldText; }

    // Gives the focus to cmdFOCUS and leaves the entered field. False if its entry was refused: the
    // focus is back in it then, and what the operator wanted to do must not be done.
    bool Commit();
    // For the rules: the entry is out of range. Shows `message` and gives `field` the focus with
    // its text selected.
    void Refuse(EntryField& field, const Message& message);
    // The entry can't be taken now. Shows `message` and takes it back; what the operator wanted to
    // do meanwhile must not be done.
    void Restore(EntryField& field, const Message& message);
    // Gives `field` the focus again, entered, with its text selected.
    void ReturnTo(EntryField& field);
    // The text of `field`, which is entered, has been taken over.
    void Accept(const EntryField& field) { OldText = field.text().toStdString(); }

  private:
    void Field_FocusIn(EntryField& field);
    void Field_FocusOut(EntryField& field, EntryField::Way way);
    void Field_Change(EntryField& field, const QString& before);
    bool TakeIn(EntryField& field, const QString& before);
    void FocusMoved(QWidget* now);
    void GotFocus(EntryField& field);
    bool Leave();
    void Cancel();
    void ShowRefusal(const Message& message);

    PowerParts& Parts;
    const Gate& Door;
    std::map<EntryField*, Rules> RulesOf;
    QObject Context;  // ends the connection to the application

    EntryField* Entered = nullptr;
    std::string OldText;
    bool RefocusPending = false;  // the focus goes back to a field in error: OldText stays
    bool Refusing = false;        // the message about an entry in error is up
    unsigned Refusals = 0;
    unsigned Leaves = 0;
};

}  // namespace zps
