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
    // The plot, which owns what is made here, outlives it. What is written there along the upper
    // edge stays free if there is such a row.
    PlotNotes(QCustomPlot& plot, bool rowAbove);

    void Colour(const QPalette& palette, const QFont& font);
    // A and B, upright at places of the time axis, or nowhere. Their letters cover neither one
    // another nor the numbers beside the axes and behind the curves.
    void PlaceMarks(const std::array<std::optional<double>, 2>& places);
    // Without a reading the cursor stands alone.
    void PlaceCursor(std::optional<double> place, const QString& reading);

  private:
    QCustomPlot& Plot;
    const bool RowAbove;
    std::array<QCPItemStraightLine*, 2> MarkLines{};
    std::array<QCPItemText*, 2> MarkNames{};
    QCPItemStraightLine* Cursor;
    QCPItemText* Reading;
};

}  // namespace zps
