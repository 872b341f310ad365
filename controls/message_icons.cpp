#include "controls/message_icons.h"

#include "controls/colours.h"

#include <QIconEngine>
#include <QPainter>
#include <QPainterPath>

namespace zps {

namespace {

constexpr double Side = 48;  // of the square that the signs are drawn in
const QColor Blue(shade::Blue);
const QColor Amber(0xFF, 0xB8, 0x1C);
const QColor DeepRed(0xC6, 0x28, 0x28);

void DrawDisc(QPainter& painter, const QColor& colour) {
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QRectF(2, 2, 44, 44));
}

void DrawTriangle(QPainter& painter) {
    painter.setPen(QPen(Amber, 6, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Amber);
    painter.drawPolygon(QPolygonF{{24, 7}, {43, 41}, {5, 41}});
}

// A stroke and the dot under or above it.
void DrawStroke(QPainter& painter, const QColor& colour, const QLineF& stroke, double dot) {
    painter.setPen(QPen(colour, 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(stroke);
    painter.setPen(Qt::NoPen);
    painter.setBrush(colour);
    painter.drawEllipse(QPointF(24, dot), 3, 3);
}

void DrawQuestion(QPainter& painter) {
    QPainterPath hook;
    const QRectF bow(16.5, 11, 15, 14);
    hook.arcMoveTo(bow, 175);
    hook.arcTo(bow, 175, -235);
    hook.quadTo({24, 26}, {24, 30});
    painter.setPen(QPen(Qt::white, 4.5, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
    painter.setBrush(Qt::NoBrush);
    painter.drawPath(hook);
    painter.setPen(Qt::NoPen);
    painter.setBrush(Qt::white);
    painter.drawEllipse(QPointF(24, 37), 3, 3);
}

void DrawCross(QPainter& painter) {
    painter.setPen(QPen(Qt::white, 5, Qt::SolidLine, Qt::RoundCap));
    painter.drawLine(QLineF(16, 16, 32, 32));
    painter.drawLine(QLineF(32, 16, 16, 32));
}

void Draw(QPainter& painter, MessageIcon icon) {
    switch (icon) {
        case MessageIcon::None:
            return;
        case MessageIcon::Information:
            DrawDisc(painter, Blue);
            return DrawStroke(painter, Qt::white, {24, 22, 24, 35}, 13.5);
        case MessageIcon::Question:
            DrawDisc(painter, Blue);
            return DrawQuestion(painter);
        case MessageIcon::Warning:
            DrawTriangle(painter);
            return DrawStroke(painter, QColor(0x20, 0x18, 0), {24, 17, 24, 28}, 36);
        case MessageIcon::Critical:
            DrawDisc(painter, DeepRed);
            return DrawCross(painter);
    }
}

class SignEngine : public QIconEngine {
  public:
    explicit SignEngine(MessageIcon icon) : Sign(icon) {}

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode /*mode*/,
               QIcon::State /*state*/) override {
        painter->save();
        painter->setRenderHint(QPainter::Antialiasing);
        painter->translate(rect.topLeft());
        painter->scale(rect.width() / Side, rect.height() / Side);
        Draw(*painter, Sign);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        QPixmap picture(size);
        picture.fill(Qt::transparent);
        QPainter painter(&picture);
        paint(&painter, QRect({}, size), mode, state);
        return picture;
    }
    QIconEngine* clone() const override { return new SignEngine(Sign); }

  private:
    MessageIcon Sign;
};

}  // namespace

QIcon DrawMessageIcon(MessageIcon icon) {
    return icon == MessageIcon::None ? QIcon() : QIcon(new SignEngine(icon));
}

}  // namespace zps
