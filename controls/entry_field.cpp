#include "controls/entry_field.h"

#include <QFocusEvent>
#include <QKeyEvent>

namespace zps {

namespace {

// The focus comes and goes with the whole window, or behind a menu or pop-up.
bool LeavesTheWindow(Qt::FocusReason reason) {
    return reason == Qt::ActiveWindowFocusReason || reason == Qt::PopupFocusReason ||
           reason == Qt::MenuBarFocusReason;
}

void Call(const std::function<void()>& event) {
    if (event) event();
}

}  // namespace

EntryField::EntryField(const QString& name, const QString& accessibleName, QWidget* parent)
    : QLineEdit(parent) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setAttribute(Qt::WA_InputMethodEnabled, false);
    setAcceptDrops(false);  // a dropped text would come without the focus, and so unchecked
    setContextMenuPolicy(Qt::NoContextMenu);
    connect(this, &QLineEdit::textChanged, this, [this] { Call(On.Change); });
}

void EntryField::SetEvents(Events events) {
    On = std::move(events);
}

void EntryField::focusInEvent(QFocusEvent* event) {
    QLineEdit::focusInEvent(event);
    const bool elsewhere = Inside || (On.Refocusing && On.Refocusing());
    if (LeavesTheWindow(event->reason()) && elsewhere) return;
    Inside = true;
    Call(On.GotFocus);
}

void EntryField::focusOutEvent(QFocusEvent* event) {
    QLineEdit::focusOutEvent(event);
    if (!LeavesTheWindow(event->reason())) Leave();
}

void EntryField::Leave() {
    deselect();  // before the handler: it may bring the focus back with the text selected
    if (!Inside) return;
    Inside = false;
    Call(On.LostFocus);
}

void EntryField::Cancel() {
    Call(On.Cancelled);
}

void EntryField::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Return:
        case Qt::Key_Enter:
            Call(On.Committed);
            return;
        case Qt::Key_Escape:
            Cancel();
            return;
        default:
            break;
    }
    const bool command = (event->modifiers() & (Qt::ControlModifier | Qt::AltModifier)) != 0;
    if (On.KeyPress && !command && !event->text().isEmpty()) On.KeyPress(event->text().front());
    QLineEdit::keyPressEvent(event);
}

}  // namespace zps
