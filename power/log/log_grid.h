// The grid of the measurement log: draws only the rows that are seen, however many there are.
#pragma once

#include "controls/still_scroll_bar.h"
#include "power/log/log_copy.h"

#include <QAbstractScrollArea>

#include <algorithm>

namespace zps {

// A table with a header row and columns of equal width, wide enough for their texts; what a wider
// grid has beside them stays empty. Besides the model it holds no memory that
// grows with the rows, and no operation's cost does. The toolkit's own table view keeps an entry
// for each row in its header, which millions of samples make both slow and large.
//
// Rows count as the operator sees them: row 0 is the header, row 1 the first row of the model,
// which has one at least. The grid follows the newest row while it stands at the end; elsewhere it
// stays.
//
// Keys and mouse select one range of rows; Ctrl+C, Ctrl+A and the context menu copy it.
class LogGrid : public QAbstractScrollArea {
    Q_OBJECT
  public:
    // `model` outlives the grid.
    explicit LogGrid(LogModel& model, QWidget* parent = nullptr);

    int RowCount() const { return Model.rowCount(); }  // without the header
    int TopRow() const;                                // the first row that is seen
    int VisibleRows() const;                           // rows that fit whole, 1 at least

    int ColumnCount() const { return Model.columnCount(); }
    QString CellText(int row, int column) const;

    // Where a cell is in the viewport; the header's cells stand above the top row's.
    QRect CellRect(int row, int column) const;

    int FirstSelected() const { return std::min(Anchor, Current); }
    int LastSelected() const { return std::max(Anchor, Current); }
    // Not until somebody selects.
    bool IsSelected(int row) const {
        return Chosen && row >= FirstSelected() && row <= LastSelected();
    }
    // Selects one row and scrolls to it.
    void SelectRow(int row) { MoveTo(row, false); }

    QSize sizeHint() const override;
    QSize minimumSizeHint() const override;

  Q_SIGNALS:
    // The top visible row has changed, by whatever means.
    void Scrolled();
    // So many rows are on the clipboard.
    void Copied(int rows);
    // Other rows are selected, or the same by another way.
    void Selected();

  protected:
    void paintEvent(QPaintEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    bool event(QEvent* event) override;
    void scrollContentsBy(int dx, int dy) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    void AddCopyActions();
    void RowsChanged(int first);
    void UpdateScrollBar();
    void MeasureColumns();
    void SelectAll();
    void MoveTo(int row, bool extend);
    void DescribeSelection();

    int RowHeight() const;
    int RowAt(int y) const;
    QRect RowRect(int row) const;
    QSize SizeForRows(int rows) const;
    static QRect TextRect(const QRect& cell) {
        return cell.adjusted(CellMargin, 0, -CellMargin, 0);
    }
    void PaintHeader(QPainter& painter);
    void PaintRow(QPainter& painter, int row);
    void PaintCell(QPainter& painter, const QRect& cell, const QModelIndex& index, bool selected);
    void PaintFocus(QPainter& painter, int row);

    static constexpr int CellMargin = 5;  // px, left and right of a cell's text

    LogModel& Model;
    LogCopy Copy;
    StillScrollBar* ScrollBar;
    int ColumnWidth = 0;  // px
    int Anchor = 1;       // where the selection began
    int Current = 1;      // where it was moved to
    bool Chosen = false;  // not until somebody selects is the selection shown
};

}  // namespace zps
