// Statistics of samples in figures and words. The decimal point is "." whatever the locale.
#pragma once

#include "power/log/range_sums.h"

#include <QString>

#include <array>
#include <functional>

namespace zps {

// A row of the statistics: voltage, current or power.
struct Quantity {
    const char* Caption;  // as a column of the log has it
    const char* Unit;
    Spread RangeSums::*Values;
    double (*Of)(const Sample& sample);
    // With the decimals that the panel shows such a value with.
    QString (*Text)(double value, const RangeSums& sums);
};
constexpr int QuantityCount = 3;
const Quantity& QuantityAt(int row);

// Least, most, mean and last, in this order.
constexpr int FigureCount = 4;
constexpr int LeastFigure = 0;
constexpr int MostFigure = 1;
constexpr int MeanFigure = 2;
const char* FigureTitle(int column);
QString FigureText(const RangeSums& sums, int row, int column);

// Watts with four significant digits: "5.760", "1500".
QString PowerText(double watts);
// Charge or energy with four significant digits and its unit, "Ah" or "Wh", from 1 down with "m":
// "7.700 mWh".
QString HoursText(double value, const QString& unit);
// "01:02:03", hours without bound.
QString DurationText(double seconds);
QString CountText(const RangeSums& sums);
// How much time was not integrated.
QString SkippedText(const RangeSums& sums);

// What fits on one line, of what matters most: "7.700 mWh · 0.320 mAh · 평균 5.760 W · 00:00:04 ·
// 29개", behind the charge how much was not integrated where some was.
QString StatisticsLine(const RangeSums& sums, const std::function<bool(const QString&)>& fits);
// What stands below a grid of the figures: charge and energy; time, samples and what was not
// integrated.
std::array<QString, 2> StatisticsFoot(const RangeSums& sums);
// All figures in words.
QString StatisticsWords(const RangeSums& sums);
// As lines for a spreadsheet, cells parted by tabs, below `title`.
QString StatisticsTable(const QString& title, const RangeSums& sums);

}  // namespace zps
