#include "controls/window_stack.h"

#include <QWidget>
#include <QWindow>

namespace zps {

void StandAbove(QWidget& window, QWidget& owner) {
    window.winId();  // the native windows are made on first use
    owner.winId();
    window.windowHandle()->setTransientParent(owner.windowHandle());
    window.adjustSize();
    window.move(owner.frameGeometry().center() - window.rect().center());
}

}  // namespace zps
