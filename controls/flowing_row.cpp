#include "controls/flowing_row.h"

#include <QEvent>

#include <algorithm>

namespace zps {

FlowingRow::FlowingRow(QBoxLayout::Direction narrow, QWidget* parent)
    : QFrame(parent), Parts(new QBoxLayout(QBoxLayout::LeftToRight, this)), Narrow(narrow) {
    Parts->setContentsMargins(0, 0, 0, 0);
}

void FlowingRow::Add(QWidget& part, int stretch) {
    Parts->addWidget(&part, stretch);
}

QSize FlowingRow::minimumSizeHint() const {
    int widest = 0;
    for (int i = 0; i < Parts->count(); ++i) {
        widest = std::max(widest, Parts->itemAt(i)->minimumSize().width());
    }
    return {widest, Parts->minimumSize().height()};
}

bool FlowingRow::event(QEvent* event) {
    const bool done = QFrame::event(event);
    if (event->type() == QEvent::Resize || event->type() == QEvent::LayoutRequest) Arrange();
    return done;
}

void FlowingRow::Arrange() {
    int wanted = Parts->spacing() * (Parts->count() - 1);
    for (int i = 0; i < Parts->count(); ++i) wanted += Parts->itemAt(i)->minimumSize().width();
    const auto direction = width() < wanted ? Narrow : QBoxLayout::LeftToRight;
    if (direction == Parts->direction()) return;
    Parts->setDirection(direction);
    updateGeometry();
}

}  // namespace zps
