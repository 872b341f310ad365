// What the plots of the measurement log have in common: axes, curves and texts.
#pragma once

#include "power/log/chart_table.h"

#include <QColor>
#include <QFont>
#include <QPalette>
#include <QWidget>

#include <array>
#include <cstddef>

class QCPAxis;
class QCPGraph;
class QCPItemText;
class QCustomPlot;

namespace zps {

constexpr int LowPlot = 130;  // px; below, the curves need the room more than a title does

// A plot that takes neither keys nor pointer, its curves in a layer of their own: they can then be
// drawn without the axes and their texts. `parent` owns it.
QCustomPlot& MakePlot(QWidget& parent);
// Voltage is drawn by the left axis, current by the right one.
QCPAxis& ValueAxis(QCustomPlot& plot, std::size_t column);

// Not seen until it is placed.
QCPItemText* MakeText(QCustomPlot& plot);

// Background, grid and axes; `font` is that of the texts.
void ColourPlot(QCustomPlot& plot, const QPalette& palette, const QFont& font);
void ColourAxis(QCPAxis& axis, const QColor& lines, const QColor& texts, const QFont& font);
// Of one size, whatever is written there: the picture must not move under its axes.
void SetMargins(QCustomPlot& plot);

// Widths, strokes and marks differ as well as colours, for people who tell colours apart badly. The
// first curve is broader, and so seen under the second where both are zero.
struct PlotCurves {
    std::array<QCPGraph*, ChartColumns> Values;
    QCPGraph* Breaks;  // upright lines between two runs
};
PlotCurves MakeCurves(QCustomPlot& plot);
void ColourCurves(const PlotCurves& curves, const QPalette& palette);
// With the marks and strokes that tell the curves apart and the area below the voltage, or, for
// more points than have room for them, as plain lines: the area below some thousand points would
// take the toolkit a fifth of a second.
void ShowMarks(const PlotCurves& curves, bool marks);
// How many times the highest value the axis of `column` is to hold: two steady curves then do not
// lie on one another.
double RoomAbove(std::size_t column);

// From 0 to `top` with round steps. Whether the axis has changed.
bool PlaceValueAxis(QCPAxis& axis, double top);

}  // namespace zps
