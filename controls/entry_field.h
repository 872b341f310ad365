// A one-line entry field with the focus events that the panel's rules are written in.
#pragma once

#include <QLineEdit>

#include <functional>

namespace zps {

// GotFocus and LostFocus are moves of the focus between controls of the window. A message box, a
// menu, a pop-up or another program coming to the front is neither: a half-typed value stays
// half-typed. LostFocus comes only after a GotFocus, whatever order the toolkit delivers in, and a
// field that a person can type into has had its GotFocus.
class EntryField : public QLineEdit {
  public:
    EntryField(const QString& name, const QString& accessibleName, QWidget* parent);

    struct Events {
        std::function<void()> GotFocus;
        std::function<void()> LostFocus;
        std::function<void()> Change;     // the text has changed, also by program
        std::function<void()> Committed;  // Enter
        std::function<void()> Cancelled;  // Escape
        std::function<void(QChar)>
            KeyPress;  // a key that makes a character, before it takes effect
        // Whether the focus is on its way back to a field in error: one that gets it meanwhile,
        // with the window, has not been entered.
        std::function<bool()> Refocusing;
    };
    void SetEvents(Events events);

    // Whether the field has had its GotFocus and not yet its LostFocus.
    bool Entered() const { return Inside; }

    // The focus has been moved elsewhere by program. In a window that is not active the toolkit
    // does not tell, so the field has its LostFocus now; it does nothing if it had it.
    void Leave();
    // As Escape does.
    void Cancel();

  protected:
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

  private:
    Events On;
    bool Inside = false;
};

}  // namespace zps
