#include "power/log/statistics_view.h"

#include "controls/live_tool_tip.h"
#include "controls/number_face.h"
#include "power/log/curve_colours.h"
#include "power/log/statistics_text.h"

#include <QAccessibleWidget>
#include <QEvent>
#include <QPainter>
#include <QStyle>
#include <QStyleOptionFocusRect>

#include <utility>

namespace zps {

namespace {

constexpr int Spacing = 10;  // px, between two columns

class SpokenStatistics : public QAccessibleWidget {
  public:
    explicit SpokenStatistics(StatisticsView& view)
        : QAccessibleWidget(&view, QAccessible::StaticText), View(view) {}

    QString text(QAccessible::Text part) const override {
        return part == QAccessible::Description ? View.Words() : QAccessibleWidget::text(part);
    }

  private:
    const StatisticsView& View;
};

QAccessibleInterface* MakeSpoken(const QString& /*className*/, QObject* object) {
    auto* view = qobject_cast<StatisticsView*>(object);
    return view == nullptr ? nullptr : new SpokenStatistics(*view);
}

}  // namespace

StatisticsView::StatisticsView(const QString& name, const QString& accessibleName, Form form,
                               QString lead)
    : As(form), Lead(std::move(lead)) {
    QAccessible::installFactory(&MakeSpoken);
    new LiveToolTip(*this, [this] { return Words(); });
    setObjectName(name);
    setAccessibleName(accessibleName);
    setFocusPolicy(Qt::TabFocus);
    setAutoFillBackground(true);  // a figure that changes paints nothing below it
    SetNumberFace(*this);
    setSizePolicy(form == Form::Line ? QSizePolicy::Ignored : QSizePolicy::Fixed,
                  QSizePolicy::Fixed);
    ShowTexts();
}

void StatisticsView::Show(const RangeSums& sums) {
    Sums = sums;
    ShowTexts();
}

QString StatisticsView::Words() const {
    return StatisticsWords(Sums);
}

int StatisticsView::LineHeight() const {
    return fontMetrics().height() + (HasGrid() ? 4 : 2);
}

QSize StatisticsView::sizeHint() const {
    const auto width = [this](const char* text) {
        return fontMetrics().horizontalAdvance(QString::fromUtf8(text));
    };
    if (!HasGrid()) return {width("999.9 mWh · 999.9 mAh") + 4, LineHeight()};
    return {width("W") + (Columns - 1) * (width("600.000") + Spacing) + 4,
            (Rows + static_cast<int>(Lines.size())) * LineHeight()};
}

QSize StatisticsView::minimumSizeHint() const {
    return sizeHint();
}

QRect StatisticsView::CellRect(int row, int column) const {
    const int first = fontMetrics().horizontalAdvance(QLatin1Char('W')) + 2;
    const int other = (width() - first - 2) / (Columns - 1);
    const int left = column == 0 ? 2 : first + (column - 1) * other;
    return {left, row * LineHeight(), column == 0 ? first : other, LineHeight()};
}

QRect StatisticsView::LineRect(int line) const {
    return {2, (HasGrid() ? Rows + line : 0) * LineHeight(), width() - 4, LineHeight()};
}

QString StatisticsView::CellText(int row, int column) const {
    if (row == 0) return column == 0 ? QString() : QString::fromUtf8(FigureTitle(column - 1));
    if (column == 0) return QLatin1String(QuantityAt(row - 1).Unit);
    return FigureText(Sums, row - 1, column - 1);
}

QString StatisticsView::LineText() const {
    return Lead + StatisticsLine(Sums, [this](const QString& text) {
               return fontMetrics().horizontalAdvance(Lead + text) <= LineRect(0).width();
           });
}

void StatisticsView::ShowTexts() {
    if (HasGrid())
        ShowGrid();
    else
        ShowText(Lines[0], LineText(), LineRect(0));
}

void StatisticsView::ShowGrid() {
    for (int row = 0; row < Rows; ++row) {
        for (int column = 0; column < Columns; ++column) {
            auto& cells = Cells.at(static_cast<std::size_t>(row));
            ShowText(cells.at(static_cast<std::size_t>(column)), CellText(row, column),
                     CellRect(row, column));
        }
    }
    const auto foot = StatisticsFoot(Sums);
    for (int line = 0; const QString& text : foot) {
        ShowText(Lines.at(static_cast<std::size_t>(line)), text, LineRect(line));
        ++line;
    }
}

void StatisticsView::ShowText(QString& shown, const QString& text, const QRect& at) {
    if (shown == text) return;
    shown = text;
    update(at);
}

QColor StatisticsView::CellColour(int row, int column) const {
    const bool curve = column == 0 && row > 0 && row <= 2;
    if (curve) return CurveColour(row - 1, palette());
    return row == 0 ? FaintText(palette(), 0.75F) : palette().color(QPalette::WindowText);
}

void StatisticsView::paintEvent(QPaintEvent* event) {
    QPainter painter(this);
    if (HasGrid()) PaintGrid(painter, event->region());
    painter.setPen(palette().color(QPalette::WindowText));
    for (int line = 0; const QString& text : Lines) {
        const QRect at = LineRect(line++);
        painter.drawText(at, Qt::AlignRight | Qt::AlignVCenter,
                         fontMetrics().elidedText(text, Qt::ElideRight, at.width()));
    }
    if (!hasFocus()) return;
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.backgroundColor = palette().color(QPalette::Window);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

void StatisticsView::PaintGrid(QPainter& painter, const QRegion& region) {
    constexpr int left = Qt::AlignLeft | Qt::AlignVCenter;
    constexpr int right = Qt::AlignRight | Qt::AlignVCenter;
    for (int row = 0; row < Rows; ++row) {
        for (int column = 0; column < Columns; ++column) {
            const QRect at = CellRect(row, column);
            if (!region.intersects(at)) continue;
            const auto& cells = Cells.at(static_cast<std::size_t>(row));
            painter.setPen(CellColour(row, column));
            painter.drawText(at, column == 0 ? left : right,
                             cells.at(static_cast<std::size_t>(column)));
        }
    }
}

void StatisticsView::resizeEvent(QResizeEvent* event) {
    QWidget::resizeEvent(event);
    ShowTexts();
}

bool StatisticsView::event(QEvent* event) {
    const bool done = QWidget::event(event);
    if (event->type() == QEvent::FontChange) updateGeometry();
    return done;
}

}  // namespace zps
