#include "controls/growing_frame.h"

#include <QFontInfo>
#include <QLayout>

#include <algorithm>
#include <cmath>

namespace zps {

void GrowingFrame::GrowText(QWidget& widget) {
    Texts.emplace_back(&widget, QFontInfo(widget.font()).pixelSize());
}

QSize GrowingFrame::minimumSizeHint() const {
    return Factor == 1 ? QFrame::minimumSizeHint() : Least;
}

void GrowingFrame::resizeEvent(QResizeEvent* event) {
    QFrame::resizeEvent(event);
    constexpr double steps = 8;
    const double wider = static_cast<double>(width()) / Usual.width();
    const double higher = static_cast<double>(height()) / Usual.height();
    const double factor =
        std::floor(std::clamp(std::min(wider, higher), 1.0, Most) * steps) / steps;
    if (factor == Factor) return;
    if (Factor == 1) Least = QFrame::minimumSizeHint();
    Factor = factor;
    for (const auto& [widget, pixels] : Texts) {
        QFont font = widget->font();
        font.setPixelSize(static_cast<int>(pixels * factor));
        widget->setFont(font);
    }
    Grow(factor);
    layout()->activate();
}

}  // namespace zps
