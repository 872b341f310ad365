#include "power/log/curve_texts.h"

#include "power/log/chart_marks.h"
#include "power/log/run_curve_axis.h"
#include "source/numbers.h"

#include <algorithm>
#include <cmath>

namespace zps {

namespace {

QString Fixed(double value, int decimals) {
    return QString::fromStdString(FormatFixed(value, decimals));
}

// Five digits, but no more than that behind the point.
int DecimalsOf(double value) {
    constexpr int digits = 5;
    if (value == 0) return 3;
    if (!(std::abs(value) >= 1)) return digits;
    return std::max(0, digits - 1 - static_cast<int>(std::floor(std::log10(std::abs(value)))));
}

QString SpreadText(const RangeSums& sums, const Spread& of, int decimals, const char* unit) {
    return QStringLiteral("%1 %2 (%3~%4)")
        .arg(Fixed(sums.Mean(of), decimals), QLatin1String(unit), Fixed(of.Least, decimals),
             Fixed(of.Most, decimals));
}

QString Total(double value, const char* unit) {
    return Fixed(value, DecimalsOf(value)) + u' ' + QLatin1String(unit);
}

}  // namespace

QString DurationText(double seconds) {
    if (WrittenAsClock(seconds)) return QString::fromStdString(TimeLabel(seconds, 1, true));
    return Fixed(seconds, 2) + QStringLiteral("초");
}

QString SampleText(const ChartPoint& point, int step) {
    QString text = ReadingText(point);
    const QString more = QStringLiteral(" · STEP ") + QString::fromStdString(FormatStep(step));
    const QString clock = WrittenAsClock(point.Seconds())
                              ? QStringLiteral(" (%1)").arg(DurationText(point.Seconds()))
                              : QString();
    return text.insert(text.indexOf(u'\n'), clock + more);
}

QStringList FigureTexts(const RangeSums& sums) {
    if (sums.Samples == 0) return {};
    const int volts = std::max(sums.First.VoltDecimals, sums.Last.VoltDecimals);
    const int amps = std::max(sums.First.CurrDecimals, sums.Last.CurrDecimals);
    QStringList texts{SpreadText(sums, sums.Volts, volts, "V"),
                      SpreadText(sums, sums.Amps, amps, "A"),
                      SpreadText(sums, sums.Watts, DecimalsOf(sums.Watts.Most), "W"),
                      DurationText(sums.Seconds()),
                      QStringLiteral("%1회").arg(sums.Samples),
                      Total(sums.WattHours(), "Wh"),
                      Total(sums.AmpHours(), "Ah")};
    if (sums.Skipped > 0)
        texts << QStringLiteral("적산 안 됨 %1").arg(DurationText(sums.SkippedSeconds()));
    return texts;
}

}  // namespace zps
