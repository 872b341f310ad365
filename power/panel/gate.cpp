#include "power/panel/gate.h"

#include <QCoreApplication>
#include <QEvent>

namespace zps {

namespace {

bool IsInput(QEvent::Type type) {
    switch (type) {
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
        case QEvent::MouseButtonDblClick:
        case QEvent::Wheel:
        case QEvent::KeyPress:
        case QEvent::KeyRelease:
        case QEvent::ShortcutOverride:
        case QEvent::Shortcut:
        case QEvent::InputMethod:
        case QEvent::TouchBegin:
        case QEvent::TouchUpdate:
        case QEvent::TouchEnd:
            return true;
        default:
            return false;
    }
}

}  // namespace

Gate::Shut::Shut(Gate& gate) : Across(gate), Window(gate.Window) {
    QCoreApplication::instance()->installEventFilter(this);
}

bool Gate::Shut::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = qobject_cast<QWidget*>(watched);
    // A message box that has come up meanwhile can be answered.
    return IsInput(event->type()) && widget != nullptr && widget->window() == &Window;
}

}  // namespace zps
