// What is said of a stretch of the log.
#pragma once

#include "power/log/chart_table.h"
#include "power/log/range_sums.h"

#include <QString>
#include <QStringList>

namespace zps {

// "3.47초"; from ten minutes on "0:34:01".
QString SpanText(double seconds);

// "NO 21 · 3.47초 · STEP 01", and the values below it.
QString SampleText(const ChartPoint& point, int step);

// What a stretch comes to, the most wanted first: "12.000 V (11.980~12.020)" is the mean, the least
// and the most; then A and W, the time, the samples, Wh and Ah, and how long was not integrated.
QStringList FigureTexts(const RangeSums& sums);

}  // namespace zps
