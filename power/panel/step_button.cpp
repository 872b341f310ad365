#include "power/panel/step_button.h"

#include "controls/colours.h"
#include "controls/number_face.h"
#include "controls/widgets.h"

#include <QTimerEvent>

#include <algorithm>

namespace zps {

namespace {
constexpr int UsualHeight = 28;  // px, as long as the text leaves it at that
constexpr int LeastHeight = 20;
constexpr int FlashTime = 400;  // ms
constexpr int MarkMargin = 7;
}  // namespace

StepButton::StepButton(const QString& name) {
    setObjectName(name);
    setFocusPolicy(Qt::TabFocus);
    setAutoDefault(false);
    setAttribute(Qt::WA_Hover);
    QFont face = font();
    SetNumberFace(face);
    Embolden(face);
    setFont(face);
}

void StepButton::SetMark(StepMark mark) {
    if (mark == Mark) return;
    Mark = mark;
    update();
}

void StepButton::Flash() {
    Flashing.start(FlashTime, this);
    update();
}

void StepButton::timerEvent(QTimerEvent* event) {
    if (event->timerId() != Flashing.timerId()) return QPushButton::timerEvent(event);
    Flashing.stop();
    update();
}

// px; it grows with the number.
int StepButton::MarkSize() const {
    return fontMetrics().height() * 6 / 7;
}

QSize StepButton::SizeOf(int height) const {
    const int number = fontMetrics().horizontalAdvance(QStringLiteral("00"));
    return {number + 2 * (MarkMargin + MarkSize() + 4),
            std::max(height, fontMetrics().height() + height - LeastHeight + 4)};
}

QSize StepButton::sizeHint() const {
    return SizeOf(UsualHeight);
}

QSize StepButton::minimumSizeHint() const {
    return SizeOf(LeastHeight);
}

void StepButton::paintEvent(QPaintEvent* /*event*/) {
    const bool flashes = Flashing.isActive();
    QPainter painter(this);
    painter.fillRect(rect(), palette().color(flashes ? QPalette::Highlight : QPalette::Button));
    painter.setPen(palette().color(flashes ? QPalette::HighlightedText : QPalette::ButtonText));
    painter.drawText(rect().adjusted(MarkSize(), 0, 0, 0), Qt::AlignCenter, text());
    const int mark = MarkSize();
    DrawMark(painter, QRectF(MarkMargin, (height() - mark) / 2.0, mark, mark), Mark);
    if (isEnabled()) DrawKey(painter);
}

void StepButton::DrawKey(QPainter& painter) const {
    QColor edge = painter.pen().color();
    if (hasFocus()) edge = FocusColour(palette(), palette().color(QPalette::Button));
    edge.setAlphaF(hasFocus() || isDown() || underMouse() ? 1 : 0.45F);
    const double width = isDown() || hasFocus() ? 2 : 1;
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setBrush(Qt::NoBrush);
    painter.setPen(QPen(edge, width));
    const double inset = 2 + width / 2;
    painter.drawRoundedRect(QRectF(rect()).adjusted(inset, inset, -inset, -inset), 3, 3);
}

}  // namespace zps
