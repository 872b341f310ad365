// The chart of the measurement log.
#pragma once

#include "power/log/chart_canvas.h"
#include "power/log/chart_marks.h"
#include "power/log/chart_table.h"

#include <QLabel>
#include <QWidget>

#include <optional>

namespace zps {

// Twenty samples as curves, below a line with the titles of the axes and the difference of two
// marked samples. The pointer, or the arrow keys, Home and End, pick a sample and show its values;
// a click, or the space bar, marks it.
class LogChart : public QWidget {
    Q_OBJECT
  public:
    explicit LogChart(QWidget* parent = nullptr);

    // Replaces all points; the picture follows with the next turn of the event loop. Costs nothing
    // if the points are the same.
    void SetData(const ChartTable& table);
    const ChartTable& Data() const { return Table; }

    // What a screen reader says of it now. It is told only of what its user does, never of samples.
    QString SpokenText() const;

  protected:
    void paintEvent(QPaintEvent* event) override;
    void changeEvent(QEvent* event) override;
    void focusInEvent(QFocusEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void LayOut();
    void ColourTitles();
    void Plot();
    void PickAt(std::optional<int> row);
    void Mark();
    void Unmark();
    void ShowPicked();
    void ShowDifference();
    void Speak();
    std::optional<int> PickedRow() const;

    QLabel* lblCHARTVOLT;
    QLabel* lblCHARTDIFF;
    QLabel* lblCHARTCURR;
    ChartCanvas* Canvas;
    ChartTable Table;
    bool Stale = false;                // the picture shows an older table
    std::optional<int> PointerX;       // px of the canvas, while the pointer picks
    std::optional<ChartPoint> Picked;  // while keys pick, it stays at its sample
    ChartMarks Marks;
    bool Pointed = false;  // the picture shows a cursor or marks
};

}  // namespace zps
