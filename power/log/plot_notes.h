// What stands above the curves of a plot: a cursor with what is read there, and the marks A and B.
#pragma once

#include <QFont>
#include <QPalette>

#include <array>
#include <optional>

class QCPItemStraightLine;
class QCPItemText;
class QCustomPlot;

namespace zps {

class PlotNotes {
  public:
    // The plot, which owns what is made here, outlives it.
    explicit PlotNotes(QCustomPlot& plot);

    void Colour(const QPalette& palette, const QFont& font);
    // Upright at `place` of the time axis, or nowhere; `mark` is 0 for A, 1 for B.
    void PlaceMark(std::size_t mark, std::optional<double> place);
    // Without a reading the cursor stands alone.
    void PlaceCursor(std::optional<double> place, const QString& reading);

  private:
    std::array<QCPItemStraightLine*, 2> MarkLines{};
    std::array<QCPItemText*, 2> MarkNames{};
    QCPItemStraightLine* Cursor;
    QCPItemText* Reading;
};

}  // namespace zps
