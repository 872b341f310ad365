#include "controls/lamp.h"

#include <QPainter>
#include <QRadialGradient>

namespace zps {

Lamp::Lamp(Colour idle, QWidget* parent) : QWidget(parent), Idle(idle), Shown(idle) {
    setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
    Describe();
}

void Lamp::Light(Colour colour) {
    if (colour == Shown) return;
    Shown = colour;
    Describe();
    update();
}

void Lamp::Describe() {
    setAccessibleDescription(Shown == Idle ? QStringLiteral("꺼짐") : QStringLiteral("켜짐"));
}

QSize Lamp::sizeHint() const {
    const int side = fontMetrics().height() * 3 / 2;
    return {side, side};
}

void Lamp::paintEvent(QPaintEvent* /*event*/) {
    const QColor colour = ToQColor(Shown);
    const int side = qMin(width(), height()) - 2;
    const QRectF disc((width() - side) / 2.0, (height() - side) / 2.0, side, side);
    QRadialGradient glow(disc.center() - QPointF(side / 6.0, side / 6.0), side * 0.8);
    glow.setColorAt(0, colour.lighter(125));
    glow.setColorAt(0.5, colour);
    glow.setColorAt(1, colour.darker(130));
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Mid).darker(140), 1.2));
    painter.setBrush(glow);
    painter.drawEllipse(disc);
}

}  // namespace zps
