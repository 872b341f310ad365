#include "power/log/curve_texts.h"

#include "controls/number_text.h"
#include "power/log/chart_marks.h"
#include "power/log/run_curve_axis.h"
#include "power/log/statistics_text.h"
#include "source/numbers.h"

namespace zps {

namespace {

QString SpreadText(const RangeSums& sums, int row) {
    return QStringLiteral("%1 %2 (%3~%4)")
        .arg(FigureText(sums, row, MeanFigure), QLatin1String(QuantityAt(row).Unit),
             FigureText(sums, row, LeastFigure), FigureText(sums, row, MostFigure));
}

}  // namespace

QString SpanText(double seconds) {
    if (WrittenAsClock(seconds)) return QString::fromStdString(TimeLabel(seconds, 1, true));
    return FixedText(seconds, 2) + QStringLiteral("초");
}

QString SampleText(const ChartPoint& point, int step) {
    QString text = ReadingText(point);
    const QString more = QStringLiteral(" · STEP ") + QString::fromStdString(FormatStep(step));
    const QString clock = WrittenAsClock(point.Seconds())
                              ? QStringLiteral(" (%1)").arg(SpanText(point.Seconds()))
                              : QString();
    return text.insert(text.indexOf(u'\n'), clock + more);
}

QStringList FigureTexts(const RangeSums& sums) {
    if (sums.Samples == 0) return {};
    QStringList texts;
    for (int row = 0; row < QuantityCount; ++row) texts += SpreadText(sums, row);
    texts << SpanText(sums.Seconds()) << CountText(sums)
          << HoursText(sums.WattHours(), QStringLiteral("Wh"))
          << HoursText(sums.AmpHours(), QStringLiteral("Ah"));
    if (sums.Skipped > 0) texts << SkippedText(sums);
    return texts;
}

}  // namespace zps
