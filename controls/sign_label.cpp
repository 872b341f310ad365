#include "controls/sign_label.h"

#include <QPainter>
#include <QPainterPath>
#include <qdrawutil.h>

namespace zps {

namespace {

constexpr int Room = 6;  // px, before the sign and behind it

// In a square of side 1.
QPainterPath StrokesOf(Sign sign) {
    QPainterPath strokes;
    const auto line = [&strokes](std::initializer_list<QPointF> points) {
        strokes.moveTo(*points.begin());
        for (const QPointF& point : points) strokes.lineTo(point);
    };
    switch (sign) {
        case Sign::Good:
            line({{0.1, 0.55}, {0.4, 0.85}, {0.95, 0.15}});
            break;
        case Sign::Bad:
            line({{0.15, 0.15}, {0.85, 0.85}});
            line({{0.85, 0.15}, {0.15, 0.85}});
            break;
        case Sign::Doubtful:
            line({{0.5, 0.05}, {0.5, 0.6}});
            line({{0.5, 0.9}, {0.5, 0.92}});
            break;
        case Sign::Open:
            strokes.addEllipse(QPointF(0.5, 0.5), 0.3, 0.3);
            break;
        case Sign::Running:
            strokes.addEllipse(QPointF(0.5, 0.5), 0.45, 0.45);
            strokes.addEllipse(QPointF(0.5, 0.5), 0.12, 0.12);
            break;
        case Sign::None:
            break;
    }
    return strokes;
}

}  // namespace

SignLabel::SignLabel(const QString& name, const QString& text, const QString& accessibleName)
    : QLabel(text) {
    setObjectName(name);
    setAccessibleName(accessibleName);
    setTextFormat(Qt::PlainText);
    setContentsMargins(Room + Side() + Room, 0, Room, 0);
}

void SignLabel::ShowSign(Sign sign) {
    if (sign == Shown) return;
    Shown = sign;
    update();
}

void SignLabel::paintEvent(QPaintEvent* event) {
    QLabel::paintEvent(event);
    const double side = Side();
    QPainter painter(this);
    const QColor colour = palette().color(foregroundRole());
    if (autoFillBackground()) qDrawPlainRect(&painter, rect(), colour);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(Room, (height() - side) / 2);
    painter.scale(side, side);
    const double thickness = Shown == Sign::Open ? 0.1 : 0.18;
    painter.setPen(QPen(colour, thickness, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.drawPath(StrokesOf(Shown));
}

}  // namespace zps
