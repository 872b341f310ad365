#include "controls/shortcuts.h"

#include <QAbstractButton>
#include <QApplication>
#include <QKeyEvent>
#include <QMenuBar>
#include <QShortcut>

#include <utility>

namespace zps {

namespace {

bool IsCommand(int key) {
    const bool function = key >= Qt::Key_F1 && key <= Qt::Key_F35;
    return function || key == Qt::Key_Space || key == Qt::Key_Return || key == Qt::Key_Enter;
}

// On X11 a held key comes as releases and presses of one and the same time. The toolkit takes them
// for new presses where it reads the two apart, which depends on the load.
class HeldKeys : public QObject {
  public:
    using QObject::QObject;

  protected:
    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        const QEvent::Type type = event->type();
        const bool press = type == QEvent::KeyPress || type == QEvent::ShortcutOverride;
        if (!press && type != QEvent::KeyRelease) return false;
        const auto& key = static_cast<const QKeyEvent&>(*event);
        if (!press) {
            Released = key.key();
            At = key.timestamp();
            return false;
        }
        const bool again = At != 0 && key.key() == Released && key.timestamp() == At;
        if (!IsCommand(key.key()) || !(again || key.isAutoRepeat())) return false;
        event->accept();  // an override that is accepted makes no shortcut
        return true;
    }

  private:
    int Released = 0;
    quint64 At = 0;  // ms; 0: of an event that has no time
};

class KeyElsewhere : public QObject {
  public:
    KeyElsewhere(QAbstractButton& button, Qt::Key key, std::function<bool()> wanted)
        : QObject(&button), Button(button), Key(key), Wanted(std::move(wanted)) {}

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
        const auto& pressed = static_cast<const QKeyEvent&>(*event);
        const bool elsewhere = static_cast<QWidget*>(watched)->window() != Button.window() &&
                               QApplication::activeModalWidget() == nullptr;
        if (pressed.key() != Key || !elsewhere || !Wanted()) return false;
        Button.click();
        return true;
    }

  private:
    QAbstractButton& Button;
    Qt::Key Key;
    std::function<bool()> Wanted;
};

}  // namespace

void IgnoreHeldKeys() {
    QCoreApplication::instance()->installEventFilter(new HeldKeys(QCoreApplication::instance()));
}

void GiveKeyElsewhere(QAbstractButton& button, Qt::Key key, std::function<bool()> wanted) {
    qApp->installEventFilter(new KeyElsewhere(button, key, std::move(wanted)));
}

// A shortcut of the button itself would be lost whenever its caption changes.
void GiveKey(QAbstractButton& button, Qt::Key key, const QString& what) {
    auto* shortcut = new QShortcut(QKeySequence(key), &button);
    shortcut->setContext(Qt::WindowShortcut);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, &button, [&button] { button.click(); });
    const QString keyName = QKeySequence(key).toString(QKeySequence::NativeText);
    button.setToolTip(QStringLiteral("%1 (%2)").arg(what, keyName));
}

void GiveMenuKey(QMenuBar& bar) {
    auto* shortcut = new QShortcut(QKeySequence(Qt::Key_F10), &bar);
    shortcut->setAutoRepeat(false);
    QObject::connect(shortcut, &QShortcut::activated, &bar, [&bar] {
        // Only the bar knows the way, and only by that key.
        QKeyEvent press(QEvent::ShortcutOverride, Qt::Key_Alt, Qt::NoModifier);
        QKeyEvent release(QEvent::KeyRelease, Qt::Key_Alt, Qt::NoModifier);
        QCoreApplication::sendEvent(bar.window(), &press);
        QCoreApplication::sendEvent(bar.window(), &release);
    });
}

void EnableKey(QAbstractButton& button, bool on) {
    button.findChild<QShortcut*>({}, Qt::FindDirectChildrenOnly)->setEnabled(on);
}

}  // namespace zps
