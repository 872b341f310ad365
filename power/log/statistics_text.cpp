#include "power/log/statistics_text.h"

#include "controls/number_text.h"

#include <QStringList>

namespace zps {

namespace {

constexpr std::array<Quantity, QuantityCount> Quantities{{
    {"Voltage(V)", "V", &RangeSums::Volts,
     [](const Sample& of) { return static_cast<double>(of.Volts); },
     [](double value, const RangeSums& sums) { return FixedText(value, sums.Last.VoltDecimals); }},
    {"Current(A)", "A", &RangeSums::Amps,
     [](const Sample& of) { return static_cast<double>(of.Amps); },
     [](double value, const RangeSums& sums) { return FixedText(value, sums.Last.CurrDecimals); }},
    {"Power(W)", "W", &RangeSums::Watts, &WattsOf,
     [](double value, const RangeSums& /*sums*/) { return PowerText(value); }},
}};

constexpr std::array FigureTitles{"최소", "최대", "평균", "마지막"};
static_assert(FigureTitles.size() == FigureCount);

const QString Dot = QStringLiteral(" · ");

QStringList Hours(const RangeSums& sums) {
    const auto hours = [&sums](double value, const QString& unit) {
        return sums.Samples > 0 ? HoursText(value, unit) : QStringLiteral("--- ") + unit;
    };
    return {hours(sums.WattHours(), QStringLiteral("Wh")),
            hours(sums.AmpHours(), QStringLiteral("Ah"))};
}

QStringList LineParts(const RangeSums& sums) {
    QStringList parts = Hours(sums);
    if (sums.Samples == 0) return parts;
    if (sums.Skipped > 0) parts += SkippedText(sums);
    return parts << QStringLiteral("평균 %1 W").arg(FigureText(sums, 2, MeanFigure))
                 << DurationText(sums.Seconds()) << CountText(sums);
}

}  // namespace

const Quantity& QuantityAt(int row) {
    return Quantities.at(static_cast<std::size_t>(row));
}

const char* FigureTitle(int column) {
    return FigureTitles.at(static_cast<std::size_t>(column));
}

QString FigureText(const RangeSums& sums, int row, int column) {
    if (sums.Samples == 0) return QStringLiteral("---");
    const Quantity& quantity = QuantityAt(row);
    const Spread& values = sums.*quantity.Values;
    const std::array figures{values.Least, values.Most, sums.Mean(values), quantity.Of(sums.Last)};
    return quantity.Text(figures.at(static_cast<std::size_t>(column)), sums);
}

QString PowerText(double watts) {
    return FixedText(watts, watts < 10 ? 3 : watts < 100 ? 2 : watts < 1000 ? 1 : 0);
}

QString HoursText(double value, const QString& unit) {
    return value < 1 ? PowerText(value * 1000) + QStringLiteral(" m") + unit
                     : PowerText(value) + u' ' + unit;
}

QString DurationText(double seconds) {
    const auto whole = static_cast<std::int64_t>(seconds);
    const auto two = [](std::int64_t value) {
        return QString::number(value).rightJustified(2, QLatin1Char('0'));
    };
    return two(whole / 3600) + u':' + two(whole / 60 % 60) + u':' + two(whole % 60);
}

QString CountText(const RangeSums& sums) {
    return QStringLiteral("%1개").arg(sums.Samples);
}

QString SkippedText(const RangeSums& sums) {
    return QStringLiteral("적분 제외 %1초").arg(FixedText(sums.SkippedSeconds(), 1));
}

QString StatisticsLine(const RangeSums& sums, const std::function<bool(const QString&)>& fits) {
    constexpr int least = 1;
    QStringList parts = LineParts(sums);
    while (parts.size() > least && !fits(parts.join(Dot))) parts.removeLast();
    return parts.join(Dot);
}

std::array<QString, 2> StatisticsFoot(const RangeSums& sums) {
    const QStringList times{DurationText(sums.Seconds()), CountText(sums), SkippedText(sums)};
    return {Hours(sums).join(Dot), times.join(Dot)};
}

QString StatisticsWords(const RangeSums& sums) {
    if (sums.Samples == 0) return QStringLiteral("측정값 없음");
    QStringList lines{LineParts(sums).join(Dot)};
    for (int row = 0; row < QuantityCount; ++row) {
        QStringList figures;
        for (int column = 0; column < FigureCount; ++column) {
            figures +=
                QString::fromUtf8(FigureTitle(column)) + u' ' + FigureText(sums, row, column);
        }
        lines += QLatin1String(QuantityAt(row).Caption) + u' ' + figures.join(QStringLiteral(", "));
    }
    return lines.join(u'\n');
}

QString StatisticsTable(const QString& title, const RangeSums& sums) {
    QString text = title;
    for (int column = 0; column < FigureCount; ++column)
        text += u'\t' + QString::fromUtf8(FigureTitle(column));
    text += u'\n';
    if (sums.Samples > 0) {
        for (int row = 0; row < QuantityCount; ++row) {
            text += QLatin1String(QuantityAt(row).Caption);
            for (int column = 0; column < FigureCount; ++column)
                text += u'\t' + FigureText(sums, row, column);
            text += u'\n';
        }
    }
    const auto line = [&text](const char* caption, const QString& value) {
        text += QString::fromUtf8(caption) + u'\t' + value + u'\n';
    };
    line("전력량(Wh)", FixedText(sums.WattHours(), 6));
    line("전하량(Ah)", FixedText(sums.AmpHours(), 6));
    line("측정 수", QString::number(sums.Samples));
    line("시간(sec)", FixedText(sums.Seconds(), 2));
    line("적분 제외(sec)", FixedText(sums.SkippedSeconds(), 2));
    return text;
}

}  // namespace zps
