#include "power/log/log_chart.h"

#include <QKeyEvent>
#include <QMouseEvent>

#include <algorithm>
#include <utility>

namespace zps {

namespace {

// The next row with a sample, `step` (1 or -1) from `row` on; none behind the last.
std::optional<int> SampleFrom(const ChartTable& table, int row, int step) {
    for (; row >= 0 && row < ChartRows; row += step) {
        if (!table[static_cast<std::size_t>(row)].IsGap()) return row;
    }
    return std::nullopt;
}

}  // namespace

LogChart::LogChart(QWidget* parent) : LogChart(new ChartCanvas, parent) {}

LogChart::LogChart(ChartCanvas* canvas, QWidget* parent)
    : ChartFrame(QStringLiteral("lblCHART"), *canvas, parent), Canvas(canvas) {}

void LogChart::SetData(const ChartTable& table) {
    if (table == Table) return;
    Table = table;
    if (Table == ChartTable{}) Unmark();  // a run begins, or the log is empty
    if (Stale) return;
    Stale = true;
    if (!isVisible()) return;
    QMetaObject::invokeMethod(
        this, [this] { Drawing.Changed(); }, Qt::QueuedConnection);
}

void LogChart::showEvent(QShowEvent* event) {
    QWidget::showEvent(event);
    if (Stale) Plot();
}

void LogChart::Plot() {
    if (!std::exchange(Stale, false)) return;
    Canvas->Plot(Table);
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

// Of what is drawn, which may be a sample behind.
void LogChart::ShowPicked() {
    if (Stale) return Plot();
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
    ShowDifference(Marks.Difference());
    ShowPicked();
    Speak();
}

void LogChart::Unmark() {
    Marks.Clear();
    ShowDifference(Marks.Difference());
}

QString LogChart::SpokenText() const {
    if (Stale && PointerX) return SummaryText(Table);  // the pointer is on an older picture
    const auto row = PickedRow();
    if (!row) return SummaryText(Table);
    const ChartPoint& point = Table[static_cast<std::size_t>(*row)];
    QStringList parts{ReadingText(point).replace(u'\n', QStringLiteral(" · "))};
    const auto& [a, b] = Marks.Marked();
    if (a == point) parts << QStringLiteral("표시 A");
    if (b == point) parts << QStringLiteral("표시 B") << Marks.Difference();
    return parts.join(QStringLiteral(", "));
}

void LogChart::keyPressEvent(QKeyEvent* event) {
    if (Stale) Plot();
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

void LogChart::focusOutEvent(QFocusEvent* event) {
    ChartFrame::focusOutEvent(event);
    Picked.reset();
    ShowPicked();
}

}  // namespace zps
