#include "power/panel/link_pill.h"

#include "controls/colours.h"
#include "controls/number_face.h"

#include <QEvent>
#include <QPainter>

#include <chrono>

namespace zps {

namespace {

using namespace std::chrono_literals;

QString InWords(std::chrono::milliseconds age) {
    if (age >= 1min) return QStringLiteral("%1분").arg(age / 1min);
    if (age >= 3s) return QStringLiteral("%1초").arg(age / 1s);
    return QStringLiteral("%1초").arg(static_cast<double>(age.count()) / 1000, 0, 'f', 1);
}

QString TextOf(const LinkWatch::View& view) {
    switch (view.State) {
        case Pulse::NotPolled:
            break;
        case Pulse::Awaited:
            return QStringLiteral("첫 응답 대기");
        case Pulse::Answers:
        case Pulse::Late:
            return QStringLiteral("응답 %1 전").arg(InWords(view.Age));
        case Pulse::Paused:
            return QStringLiteral("조회 멈춤 %1").arg(InWords(view.Age));
        case Pulse::Gone:
            return QStringLiteral("응답 없음 %1").arg(InWords(view.Age));
    }
    return QStringLiteral("조회 안 함");
}

// Invalid where there is nothing to point out.
QColor GroundOf(Pulse state) {
    if (state == Pulse::Late || state == Pulse::Paused) return shade::Amber;
    if (state == Pulse::Gone) return {0xC6, 0x28, 0x28};
    return {};
}

}  // namespace

LinkPill::LinkPill(const QString& name, const QString& accessibleName)
    : Pill(name, TextOf({}), accessibleName) {
    QFont face = font();
    const QStringList words = face.families();
    SetNumberFace(face);
    face.setFamilies(face.families() + words);
    setFont(face);
    setAlignment(Qt::AlignLeft | Qt::AlignVCenter);
    Measure();
}

void LinkPill::Measure() {
    const QFontMetrics metrics(font());
    const int high = metrics.height() * 8 / 5;
    setContentsMargins(high, 0, high / 2, 0);
    setFixedSize(metrics.horizontalAdvance(QStringLiteral("응답 없음 000초")) + high * 3 / 2 + 2,
                 high);
}

void LinkPill::changeEvent(QEvent* event) {
    Pill::changeEvent(event);
    if (event->type() == QEvent::FontChange) Measure();
}

void LinkPill::Show(const LinkWatch::View& view) {
    setText(TextOf(view));
    if (view.State == State) return;
    State = view.State;
    Fill(GroundOf(State));
    update();
}

void LinkPill::paintEvent(QPaintEvent* event) {
    Pill::paintEvent(event);
    const QColor text = palette().color(foregroundRole());
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    const double radius = height() / 5.0;
    const QPointF centre(height() * 0.58, height() / 2.0);
    if (State == Pulse::Answers || State == Pulse::Late) {
        painter.setPen(Qt::NoPen);
        painter.setBrush(State == Pulse::Late ? text : QColor(0x1E, 0x9E, 0x3E));
        painter.drawEllipse(centre, radius, radius);
        return;
    }
    painter.setPen(QPen(text, radius / 2.5));
    painter.drawEllipse(centre, radius, radius);
    const QPointF slope(radius * 1.3, -radius * 1.3);
    if (State == Pulse::Gone) painter.drawLine(centre - slope, centre + slope);
}

}  // namespace zps
