// The drawing of the measurement log's chart.
#pragma once

#include "power/log/chart_axes.h"
#include "power/log/chart_marks.h"
#include "power/log/chart_table.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace zps {

// Draws a table of twenty samples over the time of their run, the voltage by the left axis, the
// current by the right one, the last values written behind them; above that a cursor and marks.
// Its colours follow the desktop's, light or dark. It takes no part in what is clicked or typed.
class ChartCanvas : public QWidget {
    Q_OBJECT
  public:
    explicit ChartCanvas(QWidget* parent = nullptr);
    ~ChartCanvas() override;

    // Axes are drawn anew only where they change.
    void Plot(const ChartTable& table);
    // The cursor stands at `row` (0 to 19) and shows its values; a mark is seen while its sample
    // is.
    void Point(std::optional<int> row, const ChartMarks& marks);

    // The row whose sample is nearest to `x`, in px of the canvas.
    std::optional<int> RowAt(int x) const;

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Drawing;
    std::unique_ptr<Drawing> Plotting;
};

}  // namespace zps
