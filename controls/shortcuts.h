// Function keys for buttons. They make no character, so an input method leaves them alone.
#pragma once

#include <QKeySequence>

#include <functional>

class QAbstractButton;
class QMenuBar;

namespace zps {

// Pressing `key` anywhere in the button's window clicks it, if it is enabled. The key stands in the
// button's tool tip, behind `what` it does.
void GiveKey(QAbstractButton& button, Qt::Key key, const QString& what);

// In the other windows of the program too `key` clicks the button while it is `wanted`, but not
// under a modal one.
void GiveKeyElsewhere(QAbstractButton& button, Qt::Key key, std::function<bool()> wanted);

// Whether the key of a button that has been given one does anything; the button stays as it is.
void EnableKey(QAbstractButton& button, bool on);

// F10 leads to the menus of `bar` and back, as the Alt key alone does.
void GiveMenuKey(QMenuBar& bar);

// A command's key that is held down (function keys, space, Enter) counts as pressed once, in every
// window of the program: nothing switches to and fro under a finger or a book.
void IgnoreHeldKeys();

}  // namespace zps
