// What the grid of the measurement log looks like.

#include "power/log/curve_colours.h"
#include "power/log/log_grid.h"
#include "power/log/log_model.h"

#include <QPaintEvent>
#include <QPainter>
#include <QStyleOptionFocusRect>
#include <QStyleOptionHeader>

#include <algorithm>

namespace zps {

namespace {

constexpr int RuleWidth = 2;  // px, above a run

}  // namespace

void LogGrid::paintEvent(QPaintEvent* event) {
    QPainter painter(viewport());
    const int last = std::min(RowCount(), TopRow() + VisibleRows());  // it may be seen in part
    for (int row = TopRow(); row <= last; ++row) {
        if (event->region().intersects(RowRect(row))) PaintRow(painter, row);
    }
    if (event->region().intersects(RowRect(0))) PaintHeader(painter);
}

void LogGrid::PaintHeader(QPainter& painter) {
    QStyleOptionHeader option;
    option.initFrom(this);
    constexpr int firstCurve = LogColumns - ChartColumns;
    for (int column = 0; column < Model.columnCount(); ++column) {
        QPalette colours = palette();
        if (column >= firstCurve)
            colours.setColor(QPalette::ButtonText, CurveColour(column - firstCurve, colours));
        option.rect = CellRect(0, column);
        option.section = column;
        style()->drawControl(QStyle::CE_HeaderSection, &option, &painter, this);
        // A style would leave other margins beside the text than the cells below have.
        const int alignment =
            Model.headerData(column, Qt::Horizontal, Qt::TextAlignmentRole).toInt();
        style()->drawItemText(&painter, TextRect(option.rect), alignment, colours, isEnabled(),
                              Model.headerData(column, Qt::Horizontal).toString(),
                              QPalette::ButtonText);
    }
}

void LogGrid::PaintRow(QPainter& painter, int row) {
    const bool selected = IsSelected(row);
    const QRect whole = RowRect(row);
    if (selected)
        painter.fillRect(whole, palette().highlight());
    else if (row % 2 == 0)
        painter.fillRect(whole, FaintText(palette(), 0.03F));
    for (int column = 0; column < Model.columnCount(); ++column) {
        PaintCell(painter, CellRect(row, column), Model.index(row - 1, column), selected);
    }
    if (Model.index(row - 1, 0).data(StartsRunRole).toBool()) {
        const QRect rule(whole.left(), whole.top(), whole.width(), RuleWidth);
        painter.fillRect(rule, palette().color(QPalette::Text));
    }
    if (hasFocus() && row == Current) PaintFocus(painter, row);
}

void LogGrid::PaintCell(QPainter& painter, const QRect& cell, const QModelIndex& index,
                        bool selected) {
    painter.setPen(palette().color(QPalette::Midlight));
    painter.drawLine(cell.bottomLeft(), cell.bottomRight());
    painter.drawLine(cell.topRight(), cell.bottomRight());
    painter.setPen(palette().color(selected ? QPalette::HighlightedText : QPalette::Text));
    painter.drawText(TextRect(cell), index.data(Qt::TextAlignmentRole).toInt(),
                     index.data().toString());
}

void LogGrid::PaintFocus(QPainter& painter, int row) {
    QStyleOptionFocusRect option;
    option.initFrom(this);
    option.rect = RowRect(row);
    option.backgroundColor =
        palette().color(IsSelected(row) ? QPalette::Highlight : QPalette::Base);
    style()->drawPrimitive(QStyle::PE_FrameFocusRect, &option, &painter, this);
}

}  // namespace zps
