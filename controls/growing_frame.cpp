#include "controls/growing_frame.h"

#include <QFontInfo>
#include <QLayout>

#include <algorithm>
#include <cmath>

namespace zps {

void GrowingFrame::GrowText(QWidget& widget) {
    Parts.push_back({&widget, QFontInfo(widget.font()).pixelSize(), {}, {}});
}

void GrowingFrame::GrowAll(QWidget& root) {
    if (dynamic_cast<GrowingFrame*>(&root) != nullptr) return;
    GrowText(root);
    Parts.back().Least = root.minimumSize();
    Parts.back().Most = root.maximumSize();
    for (QObject* child : root.children()) {
        if (child->isWidgetType()) GrowAll(*static_cast<QWidget*>(child));
    }
}

QSize GrowingFrame::minimumSizeHint() const {
    return Factor == 1 ? QFrame::minimumSizeHint() : Least;
}

void GrowingFrame::GrowPart(const Part& part, double factor) {
    const auto grown = [factor](int bound) {
        return bound == QWIDGETSIZE_MAX ? bound : static_cast<int>(bound * factor);
    };
    QFont font = part.Widget->font();
    font.setPixelSize(static_cast<int>(part.Pixels * factor));
    part.Widget->setFont(font);
    if (!part.Most.isValid()) return;
    part.Widget->setMinimumSize(grown(part.Least.width()), grown(part.Least.height()));
    part.Widget->setMaximumSize(grown(part.Most.width()), grown(part.Most.height()));
}

void GrowingFrame::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    constexpr double steps = 8;
    const QSize room = Room();
    const double wider = static_cast<double>(room.width()) / Usual.width();
    const double higher = static_cast<double>(room.height()) / Usual.height();
    const double factor =
        std::floor(std::clamp(std::min(wider, higher), 1.0, Most) * steps) / steps;
    if (factor == Factor) return;
    if (Factor == 1) Least = QFrame::minimumSizeHint();
    Factor = factor;
    for (const Part& part : Parts) GrowPart(part, factor);
    Grow(factor);
    layout()->activate();
}

}  // namespace zps
