#include "power/log/log_chart.h"

#include "controls/colours.h"
#include "controls/number_face.h"
#include "controls/widgets.h"
#include "power/log/curve_colours.h"

#include <QAccessible>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QPainter>
#include <QStyleOption>
#include <QVBoxLayout>

#include <algorithm>

namespace zps {

namespace {

constexpr int FrameWidth = 2;  // px; the frame is as wide while the chart has the focus

// The next row with a sample, `step` (1 or -1) from `row` on; none behind the last.
std::optional<int> SampleFrom(const ChartTable& table, int row, int step) {
    for (; row >= 0 && row < ChartRows; row += step) {
        if (!table[static_cast<std::size_t>(row)].IsGap()) return row;
    }
    return std::nullopt;
}

}  // namespace

LogChart::LogChart(QWidget* parent)
    : QWidget(parent),
      lblCHARTVOLT(MakeLabel(QStringLiteral("lblCHARTVOLT"), QStringLiteral("● 전압(V)"))),
      lblCHARTDIFF(MakeLabel(QStringLiteral("lblCHARTDIFF"), {})),
      lblCHARTCURR(MakeLabel(QStringLiteral("lblCHARTCURR"), QStringLiteral("전류(A) ■"))),
      Canvas(new ChartCanvas) {
    setFocusPolicy(Qt::StrongFocus);
    setMouseTracking(true);
    setMinimumSize(260, 100);
    lblCHARTDIFF->setAlignment(Qt::AlignCenter);
    lblCHARTDIFF->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
    SetNumberFace(*lblCHARTDIFF);
    LayOut();
    ColourTitles();
}

void LogChart::LayOut() {
    auto* head = new QHBoxLayout;
    head->addWidget(lblCHARTVOLT);
    head->addWidget(lblCHARTDIFF, 1);
    head->addWidget(lblCHARTCURR);
    auto* framed = new QVBoxLayout;
    framed->setContentsMargins(FrameWidth, FrameWidth, FrameWidth, FrameWidth);
    framed->addWidget(Canvas);
    auto* all = new QVBoxLayout(this);
    all->setContentsMargins(0, 0, 0, 0);
    all->setSpacing(2);
    all->addLayout(head);
    all->addLayout(framed, 1);
}

// As much of it as there is room for, the time first.
void LogChart::ShowDifference() {
    const QString whole = Marks.Difference();
    const int room = width() - 2 * (lblCHARTVOLT->sizeHint().width() + layout()->spacing());
    lblCHARTDIFF->setText(lblCHARTDIFF->fontMetrics().elidedText(whole, Qt::ElideRight, room));
    lblCHARTDIFF->setToolTip(whole);
}

void LogChart::ColourTitles() {
    for (int column = 0; QLabel * title : {lblCHARTVOLT, lblCHARTCURR}) {
        QPalette own;
        own.setColor(QPalette::WindowText, CurveColour(column++, palette()));
        title->setPalette(own);
    }
}

void LogChart::SetData(const ChartTable& table) {
    if (table == Table) return;
    Table = table;
    if (Stale) return;
    Stale = true;
    QMetaObject::invokeMethod(this, &LogChart::Plot, Qt::QueuedConnection);
}

void LogChart::Plot() {
    Stale = false;
    Canvas->Plot(Table);
    if (Table == ChartTable{}) Unmark();  // a run begins, or the log is empty
    if (PointerX || Picked || Pointed) ShowPicked();
}

// A sample that has left the chart leaves the cursor at the oldest.
std::optional<int> LogChart::PickedRow() const {
    if (PointerX) return Canvas->RowAt(*PointerX);
    if (!Picked) return std::nullopt;
    const auto* const found = std::find(Table.begin(), Table.end(), *Picked);
    if (found == Table.end()) return SampleFrom(Table, 0, 1);
    return static_cast<int>(found - Table.begin());
}

void LogChart::ShowPicked() {
    const auto row = PickedRow();
    Canvas->Point(row, Marks);
    Pointed = row || Marks.Marked()[0];
}

void LogChart::PickAt(std::optional<int> row) {
    PointerX.reset();
    if (row) Picked = Table[static_cast<std::size_t>(*row)];
    ShowPicked();
    Speak();
}

void LogChart::Mark() {
    const auto row = PickedRow();
    if (!row) return;
    Marks.Put(Table[static_cast<std::size_t>(*row)]);
    ShowDifference();
    ShowPicked();
    Speak();
}

void LogChart::Unmark() {
    Marks.Clear();
    ShowDifference();
}

QString LogChart::SpokenText() const {
    const auto row = PickedRow();
    if (!row) return SummaryText(Table);
    const ChartPoint& point = Table[static_cast<std::size_t>(*row)];
    QStringList parts{ReadingText(point).replace(u'\n', QStringLiteral(" · "))};
    const auto& [a, b] = Marks.Marked();
    if (a == point) parts << QStringLiteral("표시 A");
    if (b == point) parts << QStringLiteral("표시 B") << Marks.Difference();
    return parts.join(QStringLiteral(", "));
}

void LogChart::Speak() {
    QAccessibleEvent event(this, QAccessible::DescriptionChanged);
    QAccessible::updateAccessibility(&event);
}

void LogChart::keyPressEvent(QKeyEvent* event) {
    const int row = PickedRow().value_or(ChartRows);
    switch (event->key()) {
        case Qt::Key_Left:
            return PickAt(SampleFrom(Table, row - 1, -1));
        case Qt::Key_Right:
            return PickAt(SampleFrom(Table, row + 1, 1));
        case Qt::Key_Home:
            return PickAt(SampleFrom(Table, 0, 1));
        case Qt::Key_End:
            return PickAt(SampleFrom(Table, ChartRows - 1, -1));
        case Qt::Key_Space:
            return Mark();
        default:
            QWidget::keyPressEvent(event);
    }
}

void LogChart::mouseMoveEvent(QMouseEvent* event) {
    const QPoint place = Canvas->mapFrom(this, event->position().toPoint());
    if (!Canvas->rect().contains(place)) return leaveEvent(event);
    PointerX = place.x();
    Picked.reset();
    ShowPicked();
}

void LogChart::mousePressEvent(QMouseEvent* event) {
    mouseMoveEvent(event);
    if (event->button() == Qt::LeftButton && PointerX) Mark();
}

void LogChart::leaveEvent(QEvent* /*event*/) {
    if (!PointerX) return;
    PointerX.reset();
    ShowPicked();
}

void LogChart::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ShowDifference();
}

void LogChart::focusInEvent(QFocusEvent* event) {
    QWidget::focusInEvent(event);
    update();
}

void LogChart::focusOutEvent(QFocusEvent* event) {
    QWidget::focusOutEvent(event);
    Picked.reset();
    ShowPicked();
    update();
}

// The frame is that of the grid beside it.
void LogChart::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    const QRect frame =
        Canvas->geometry().adjusted(-FrameWidth, -FrameWidth, FrameWidth, FrameWidth);
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

void LogChart::changeEvent(QEvent* event) {
    QWidget::changeEvent(event);
    if (event->type() == QEvent::PaletteChange) ColourTitles();
}

}  // namespace zps
