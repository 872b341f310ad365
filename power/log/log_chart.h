// The chart of the measurement log.
#pragma once

#include "controls/paced.h"
#include "power/log/chart_canvas.h"
#include "power/log/chart_frame.h"
#include "power/log/chart_marks.h"
#include "power/log/chart_table.h"

#include <chrono>
#include <optional>

namespace zps {

// Twenty samples as curves. The pointer, or the arrow keys, Home and End, pick a sample and show
// its values; a click, or the space bar, marks it.
class LogChart : public ChartFrame {
    Q_OBJECT
  public:
    explicit LogChart(QWidget* parent = nullptr);

    // Replaces all points; the picture follows with the next turn of the event loop, a few times a
    // second at most, or when it is shown. Costs nothing if the points are the same.
    void SetData(const ChartTable& table);
    const ChartTable& Data() const { return Table; }

    QString SpokenText() const override;

  protected:
    void showEvent(QShowEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void leaveEvent(QEvent* event) override;

  private:
    LogChart(ChartCanvas* canvas, QWidget* parent);
    void Plot();
    void PickAt(std::optional<int> row);
    void Mark();
    void Unmark();
    void ShowPicked();
    std::optional<int> PickedRow() const;

    ChartCanvas* Canvas;
    ChartTable Table;
    bool Stale = false;                // the picture shows an older table
    std::optional<int> PointerX;       // px of the canvas, while the pointer picks
    std::optional<ChartPoint> Picked;  // while keys pick, it stays at its sample
    ChartMarks Marks;
    bool Pointed = false;  // the picture shows a cursor or marks
    Paced Drawing{[this] { Plot(); }, std::chrono::milliseconds(300)};
};

}  // namespace zps
