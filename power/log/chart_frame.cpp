#include "power/log/chart_frame.h"

#include "controls/colours.h"
#include "controls/number_face.h"
#include "controls/widgets.h"
#include "power/log/curve_colours.h"

#include <QAccessible>
#include <QEvent>
#include <QHBoxLayout>
#include <QPainter>
#include <QStyleOption>
#include <QVBoxLayout>

namespace zps {

ChartFrame::ChartFrame(const QString& prefix, QWidget& canvas, QWidget* parent)
    : QWidget(parent),
      Line(new QWidget(this)),
      Volt(MakeLabel(prefix + QStringLiteral("VOLT"), QStringLiteral("● 전압(V)"))),
      Difference(MakeLabel(prefix + QStringLiteral("DIFF"), {}, QStringLiteral("A와 B의 차이"))),
      Curr(MakeLabel(prefix + QStringLiteral("CURR"), QStringLiteral("전류(A) ■"))),
      Canvas(canvas) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(260, 80);
    Difference->setAlignment(Qt::AlignCenter);
    Difference->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    SetNumberFace(*Difference);
    auto* head = new QHBoxLayout(Line);
    head->setContentsMargins(0, 0, 0, 0);
    head->addWidget(Volt);
    head->addWidget(Difference, 1);
    head->addWidget(Curr);
    Line->installEventFilter(this);
    auto* framed = new QVBoxLayout(this);
    framed->setContentsMargins(FrameWidth, FrameWidth, FrameWidth, FrameWidth);
    framed->addWidget(&Canvas);
    ColourTitles();
}

void ChartFrame::ShowDifference(const QString& whole) {
    Whole = whole;
    ElideDifference();
}

void ChartFrame::ElideDifference() {
    const int room = Line->width() - 2 * (Volt->sizeHint().width() + Line->layout()->spacing());
    Difference->setText(Difference->fontMetrics().elidedText(Whole, Qt::ElideRight, room));
    Difference->setToolTip(Whole);
}

bool ChartFrame::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Line && event->type() == QEvent::Resize) ElideDifference();
    return QWidget::eventFilter(watched, event);
}

void ChartFrame::ColourTitles() {
    for (int column = 0; QLabel * title : {Volt, Curr}) {
        QPalette own;
        own.setColor(QPalette::WindowText, CurveColour(column++, palette()));
        title->setPalette(own);
    }
}

void ChartFrame::Speak() {
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

void ChartFrame::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void ChartFrame::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    update();
}

// The frame is that of the grid beside it.
void ChartFrame::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect frame =
        Canvas.geometry().adjusted(-FrameWidth, -FrameWidth, FrameWidth, FrameWidth);
    painter.fillRect(frame, palette().base());
    if (hasFocus()) {
        painter.setPen(QPen(FocusColour(palette(), palette().color(QPalette::Base)), 2));
        painter.drawRect(frame.adjusted(1, 1, -1, -1));
        return;
    }
    QStyleOptionFrame option;
    option.initFrom(this);
    option.rect = frame;
    option.lineWidth = 1;
    option.frameShape = QFrame::StyledPanel;
    option.state |= QStyle::State_Sunken;
    style()->drawPrimitive(QStyle::PE_Frame, &option, &painter, this);
}

void ChartFrame::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ColourTitles();
}

}  // namespace zps
