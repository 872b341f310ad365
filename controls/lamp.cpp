#include "controls/lamp.h"

#include <QPainter>
#include <QRadialGradient>

namespace zps {

namespace {
// px, across
constexpr int Socket = 36;
constexpr int Glass = 28;
}  // namespace

Lamp::Lamp(Colour idle, QWidget* parent) : QWidget(parent), Idle(idle), Shown(idle) {
    setSizePolicy(QSizePolicy::Maximum, QSizePolicy::Maximum);
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
    return QSize(Socket, Socket) * Factor;
}

QSize Lamp::minimumSizeHint() const {
    return QSize(Glass, Glass) * 6 / 7;
}

void Lamp::Enlarge(double factor) {
    Factor = factor;
    updateGeometry();
}

void Lamp::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(Qt::NoPen);
    const QPointF middle = QRectF(rect()).center();
    const double socket = qMin(width(), height()) / 2.0;
    const bool lit = Shown != Idle;
    const bool darkDesktop = IsDark(palette().color(QPalette::Window));
    if (lit || darkDesktop) {
        painter.setBrush(Qt::black);
        painter.drawEllipse(middle, socket, socket);
    }
    const double radius = socket * Glass / Socket;
    lit ? PaintLit(painter, middle, radius) : PaintIdle(painter, middle, radius * 2 / 3);
}

void Lamp::PaintLit(QPainter& painter, const QPointF& middle, double radius) const {
    const QColor colour = ToQColor(Shown);
    const double reach = radius * Socket / Glass;
    QRadialGradient halo(middle, reach);
    QColor edge = colour;
    edge.setAlphaF(0.75F);
    halo.setColorAt(radius / reach, edge);
    edge.setAlphaF(0.1F);
    halo.setColorAt(1, edge);
    painter.setBrush(halo);
    painter.drawEllipse(middle, reach, reach);
    painter.setBrush(colour);
    painter.drawEllipse(middle, radius, radius);
    const QPointF spot = middle - QPointF(radius, radius) * 0.35;
    QRadialGradient gleam(spot, radius * 0.45);
    gleam.setColorAt(0.3, Qt::white);
    gleam.setColorAt(1, QColor(255, 255, 255, 0));
    painter.setBrush(gleam);
    painter.drawEllipse(spot, radius * 0.45, radius * 0.45);
}

void Lamp::PaintIdle(QPainter& painter, const QPointF& middle, double radius) const {
    constexpr double ring = 2;  // px
    painter.setPen(QPen(QColor(0x30, 0x34, 0x38), ring));
    painter.setBrush(ToQColor(Shown));
    painter.drawEllipse(middle, radius - ring / 2, radius - ring / 2);
}

}  // namespace zps
