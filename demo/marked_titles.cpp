#include "demo/marked_titles.h"

#include <QApplication>
#include <QEvent>
#include <QWidget>

namespace zps::demo {

namespace {

bool BearsTitle(const QWidget& widget) {
    const auto kind = widget.windowType();
    return kind == Qt::Window || kind == Qt::Dialog || kind == Qt::Tool;
}

}  // namespace

MarkedTitles::MarkedTitles() {
    qApp->installEventFilter(this);
}

bool MarkedTitles::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::Show && event->type() != QEvent::WindowTitleChange) return false;
    const auto mark = QStringLiteral(" (모의)");
    auto* window = qobject_cast<QWidget*>(watched);
    if (window != nullptr && BearsTitle(*window) && !window->windowTitle().endsWith(mark))
        window->setWindowTitle(window->windowTitle() + mark);
    return false;
}

}  // namespace zps::demo
