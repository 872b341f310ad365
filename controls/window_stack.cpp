#include "controls/window_stack.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QWidget>
#include <QWindow>

namespace zps {

void StandAbove(QWidget& window, QWidget& owner) {
    window.winId();  // the native windows are made on first use
    owner.winId();
    window.windowHandle()->setTransientParent(owner.windowHandle());
    window.move(owner.frameGeometry().center() - window.rect().center());
}

void FitToScreen(QWidget& window) {
    QSize wanted = window.sizeHint();
    if (auto* frame = qobject_cast<QMainWindow*>(&window)) {
        if (auto* view = qobject_cast<QScrollArea*>(frame->centralWidget())) {
            wanted = view->widget()->sizeHint() + QSize(0, frame->menuBar()->sizeHint().height());
        }
    }
    window.resize(wanted.boundedTo(window.screen()->availableSize() * 0.95));
}

}  // namespace zps
