// The drawing of the whole run.
#pragma once

#include "power/log/plot_parts.h"
#include "power/log/run_curve.h"
#include "power/log/run_curve_window.h"

#include <QWidget>

#include <array>
#include <memory>
#include <optional>

namespace zps {

// Draws what a window shows of a curve: a line through its samples, or, where they are too many,
// from the least to the most of each column of pixels. Above that a cursor, marks, the borders of
// the runs and, along the upper edge, where steps begin. It takes no part in what is clicked or
// typed, and draws nothing while it is hidden.
class RunCurveCanvas : public QWidget {
    Q_OBJECT
  public:
    // `curve` outlives it.
    explicit RunCurveCanvas(const RunCurve& curve, QWidget* parent = nullptr);
    ~RunCurveCanvas() override;

    // What `window` shows is to be seen.
    void Plot(const CurveWindow& window);
    struct Notes {
        std::optional<std::size_t> Cursor;
        QString Reading;
        std::array<std::optional<std::size_t>, 2> Marks;
    };
    // Cursor and marks, of samples, go along with the curve.
    void Point(const Notes& notes);

    // Whether it has no room for what is read at the cursor.
    bool IsLow() const { return height() < 100; }
    // Columns of pixels from the left axis to the right one.
    int Columns() const;
    // The share of what is seen that is left of `x`, in px of the canvas; may be out of 0 to 1.
    double ShareAt(int x) const;

  protected:
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    void Replot();

    struct Drawing;
    std::unique_ptr<Drawing> Plotting;
};

}  // namespace zps
