// The chart of the measurement log.
#pragma once

#include "power/log/chart_table.h"

#include <QWidget>

#include <memory>

namespace zps {

// Plots a table of twenty points: the voltage by the left axis, the current by the right one. Its
// colours follow the desktop's, light or dark.
class LogChart : public QWidget {
    Q_OBJECT
  public:
    explicit LogChart(QWidget* parent = nullptr);
    ~LogChart() override;

    // Replaces all points; the picture follows with the next turn of the event loop. Costs nothing
    // if the points are the same.
    void SetData(const ChartTable& table);

    // What is plotted in `row` (0 to 19) of `column`, in volts or amperes; NaN is a gap.
    double PlottedValue(int row, int column) const;

  protected:
    void changeEvent(QEvent* event) override;

  private:
    void Replace(const ChartTable& table);

    struct Drawing;
    std::unique_ptr<Drawing> Plot;
    ChartTable Plotted;
};

}  // namespace zps
