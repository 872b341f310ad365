#include "controls/lamp.h"

#include <QPainter>
#include <QRadialGradient>

#include <algorithm>

namespace zps {

namespace {
// px, across
constexpr int Socket = 36;
constexpr int Glass = 28;
constexpr int LeastSocket = 24;
constexpr int LeastHalo = 4;  // both sides together

// In little room the halo gives way before the glass does.
double GlassIn(int socket) {
    return std::max(static_cast<double>(socket) * Glass / Socket,
                    static_cast<double>(std::min(Glass, socket - LeastHalo)));
}
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
    return {LeastSocket, LeastSocket};
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
    const int side = std::min(width(), height());
    const double socket = side / 2.0;
    const bool lit = Shown != Idle;
    const bool darkDesktop = IsDark(palette().color(QPalette::Window));
    if (lit || darkDesktop) {
        painter.setBrush(Qt::black);
        painter.drawEllipse(middle, socket, socket);
    }
    const double radius = GlassIn(side) / 2;
    lit ? PaintLit(painter, middle, radius, socket) : PaintIdle(painter, middle, radius * 2 / 3);
}

void Lamp::PaintLit(QPainter& painter, const QPointF& middle, double radius, double reach) const {
    const QColor colour = ToQColor(Shown);
    QRadialGradient halo(middle, reach);
    QColor edge = colour;
    edge.setAlphaF(0.75F);
    halo.setColorAt(radius / reach, edge);
    // The rim stays black: a dark red lamp would be lost on a dark desktop.
    edge.setAlphaF(0);
    halo.setColorAt((radius + (reach - radius) * 0.7) / reach, edge);
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
