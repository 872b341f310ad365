#include "power/panel/output_region.h"

#include "controls/colours.h"
#include "controls/widgets.h"

#include <QHBoxLayout>
#include <QPainter>
#include <QVBoxLayout>

namespace zps {

namespace {

constexpr int FrameOn = 3;  // px
constexpr int FrameOff = 1;
constexpr int Padding = 4;
constexpr int StripText = 13;

QString Caption(OutputState state) {
    switch (state) {
        case OutputState::On:
            return QStringLiteral("출력 중");
        case OutputState::LeftOn:
            return QStringLiteral("출력 상태 모름 (본체 제어)");
        case OutputState::ReportedOn:
            return QStringLiteral("출력 켜짐 (전원 장치가 알림)");
        case OutputState::Off:
            break;
    }
    return QStringLiteral("출력 꺼짐");
}

}  // namespace

OutputRegion::OutputRegion(const std::vector<QLabel*>& besides, QWidget& content)
    : Strip(new QWidget),
      lblRUNNING(
          MakeLabel(QStringLiteral("lblRUNNING"), Caption(State), QStringLiteral("출력 띠"))) {
    setObjectName(QStringLiteral("fraOUTPUT"));
    SetPixels(*lblRUNNING, StripText, true);
    for (QLabel* label : besides) {
        SetPixels(*label, StripText, false);
        label->setAutoFillBackground(true);  // a second that passes paints nothing below it
    }
    // What is written there changes, the room that the region needs does not.
    Strip->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    auto* strip = new QHBoxLayout(Strip);
    strip->setContentsMargins(8, 1, 8, 1);
    strip->setSpacing(16);
    strip->addWidget(lblRUNNING, 1);
    for (QLabel* label : besides) strip->addWidget(label);
    auto* column = new QVBoxLayout(this);
    column->setContentsMargins(FrameOn, FrameOn, FrameOn, FrameOn);
    column->setSpacing(0);
    column->addWidget(Strip);
    auto* inside = new QVBoxLayout;
    inside->setContentsMargins(Padding, Padding, Padding, Padding);
    inside->addWidget(&content);
    column->addLayout(inside, 1);
}

void OutputRegion::Show(OutputState state) {
    if (state == State) return;
    State = state;
    lblRUNNING->setText(Caption(state));
    Strip->setAutoFillBackground(false);
    Strip->setPalette({});
    if (On()) PaintBackground(*Strip, Colour::DarkRed);
    update();
}

void OutputRegion::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    QColor line = palette().color(QPalette::WindowText);
    line.setAlphaF(0.3F);
    const int width = On() ? FrameOn : FrameOff;
    painter.setPen(QPen(On() ? ToQColor(Colour::DarkRed) : line, width, Qt::SolidLine,
                        Qt::SquareCap, Qt::MiterJoin));
    const double half = width / 2.0;
    painter.drawRect(QRectF(rect()).adjusted(half, half, -half, -half));
}

}  // namespace zps
