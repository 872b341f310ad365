#include "power/panel/step_look.h"

#include "controls/colours.h"

#include <QApplication>
#include <QPalette>
#include <QPolygonF>

#include <array>
#include <span>

namespace zps {

namespace {

// Shapes in a square of 12.
constexpr double Square = 12;
constexpr std::array Triangle{QPointF(2, 0.5), QPointF(11, 6), QPointF(2, 11.5)};
constexpr std::array Hook{QPointF(1, 6.5), QPointF(4.5, 10), QPointF(11, 2)};
constexpr std::array Pencil{QPointF(1, 11), QPointF(2, 7.5), QPointF(8.5, 1), QPointF(11, 3.5),
                            QPointF(4.5, 10)};
constexpr std::array Cross{QPointF(1.5, 1.5), QPointF(10.5, 10.5), QPointF(10.5, 1.5),
                           QPointF(1.5, 10.5)};

QPolygonF Polygon(std::span<const QPointF> points) {
    return {QList<QPointF>(points.begin(), points.end())};
}

}  // namespace

RowLook LookOf(RowState state) {
    switch (state) {
        case RowState::Selected:
            return {ToQColor(Colour::PaleOrange), ToQColor(Colour::PaleOrange),
                    QStringLiteral("선택됨")};
        case RowState::Held:
            return {ToQColor(Colour::LightCyan), ToQColor(Colour::LightCyan),
                    QStringLiteral("송신됨")};
        case RowState::Plain:
            break;
    }
    const QPalette system = QApplication::palette();
    return {system.color(QPalette::Button), system.color(QPalette::HighlightedText),
            QStringLiteral("미송신")};
}

void DrawMark(QPainter& painter, const QRectF& place, StepMark mark) {
    painter.save();
    painter.setRenderHint(QPainter::Antialiasing);
    painter.translate(place.topLeft());
    painter.scale(place.width() / Square, place.height() / Square);
    QPen pen = painter.pen();
    pen.setWidthF(2);
    const QBrush filled(pen.color());
    switch (mark) {
        case StepMark::None:
            break;
        case StepMark::Running:
            painter.setPen(Qt::NoPen);
            painter.setBrush(filled);
            painter.drawPolygon(Polygon(Triangle));
            break;
        case StepMark::Refused:
            painter.setPen(pen);
            painter.drawLine(Cross[0], Cross[1]);
            painter.drawLine(Cross[2], Cross[3]);
            break;
        case StepMark::Changed:
            pen.setWidthF(1.2);
            painter.setPen(pen);
            painter.drawPolygon(Polygon(Pencil));
            break;
        case StepMark::Held:
            painter.setPen(pen);
            painter.drawPolyline(Polygon(Hook));
            break;
    }
    painter.restore();
}

QString Spoken(StepMark mark) {
    switch (mark) {
        case StepMark::None:
            break;
        case StepMark::Running:
            return QStringLiteral("실행 중");
        case StepMark::Refused:
            return QStringLiteral("전원 장치가 거부함");
        case StepMark::Changed:
            return QStringLiteral("바뀐 값을 보내지 않음");
        case StepMark::Held:
            return QStringLiteral("송신됨");
    }
    return {};
}

}  // namespace zps
