#include "controls/window_stack.h"

#include <QMainWindow>
#include <QMenuBar>
#include <QScreen>
#include <QScrollArea>
#include <QStatusBar>
#include <QStyle>
#include <QWidget>
#include <QWindow>

namespace zps {

namespace {
const QSize AllInSight(900, 470);  // px; with less a window may have to scroll
}

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
            const int bars =
                frame->menuBar()->sizeHint().height() + frame->statusBar()->sizeHint().height();
            wanted = view->widget()->sizeHint() + QSize(0, bars);
        }
    }
    const QSize screen = window.screen()->availableSize();
    const QSize whole = screen - QSize(0, window.style()->pixelMetric(QStyle::PM_TitleBarHeight));
    window.resize(wanted.boundedTo((screen * 0.9).expandedTo(AllInSight.boundedTo(whole))));
}

void Centre(QWidget& window) {
    const QRect screen = window.screen()->availableGeometry();
    // The desktop tells the true height of the title bar only once the window stands there.
    const int titleBar = window.style()->pixelMetric(QStyle::PM_TitleBarHeight);
    const QPoint spare((screen.width() - window.width()) / 2,
                       (screen.height() - window.height() - titleBar) / 2);
    window.move(screen.topLeft() + QPoint(qMax(0, spare.x()), qMax(0, spare.y())));
}

}  // namespace zps
