#include "controls/shortcuts.h"

#include <QAbstractButton>
#include <QShortcut>

namespace zps {

// A shortcut of the button itself would be lost whenever its caption changes.
void GiveKey(QAbstractButton& button, Qt::Key key, const QString& what) {
    auto* shortcut = new QShortcut(QKeySequence(key), &button);
    shortcut->setContext(Qt::WindowShortcut);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, &button, [&button] { button.click(); });
    const QString keyName = QKeySequence(key).toString(QKeySequence::NativeText);
    button.setToolTip(QStringLiteral("%1 (%2)").arg(what, keyName));
}

void EnableKey(QAbstractButton& button, bool on) {
    button.findChild<QShortcut*>({}, Qt::FindDirectChildrenOnly)->setEnabled(on);
}

}  // namespace zps
