#include "power/log/chart_marks.h"

#include "controls/number_text.h"

#include <QStringList>

#include <algorithm>
#include <cmath>

namespace zps {

namespace {

constexpr std::array<const char*, ChartColumns> Units{" V", " A"};
constexpr std::array<const char*, ChartColumns> Names{"전압 ", "전류 "};

const QString Separator = QStringLiteral(" · ");

QString Signed(double value, int decimals) {
    QString text = FixedText(std::abs(value), decimals);
    if (text.toDouble() == 0) return text;
    return (value < 0 ? u'-' : u'+') + text;
}

QString WithoutTrailingZeros(QString text) {
    if (!text.contains(u'.')) return text;
    while (text.endsWith(u'0')) text.chop(1);
    if (text.endsWith(u'.')) text.chop(1);
    return text;
}

}  // namespace

void ChartMarks::Put(const ChartPoint& point) {
    auto& [a, b] = Places;
    if (a && b)
        Clear();
    else
        (a ? b : a) = point;
}

QString ChartMarks::Difference() const {
    const auto& [a, b] = Places;
    if (!a || !b) return {};
    QStringList parts;
    if (a->Run == b->Run) parts << Signed(b->Seconds() - a->Seconds(), 2) + QStringLiteral("초");
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        const auto& from = a->Values[column];
        const auto& to = b->Values[column];
        if (!from || !to) continue;
        parts << Signed(static_cast<double>(to->Value) - static_cast<double>(from->Value),
                        std::max(from->Decimals, to->Decimals)) +
                     QLatin1String(Units[column]);
    }
    return QStringLiteral("Δ ") + parts.join(Separator);
}

QString ReadingText(const ChartPoint& point) {
    QStringList values;
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        const auto& value = point.Values[column];
        if (value)
            values << FixedText(value->Value, value->Decimals) + QLatin1String(Units[column]);
    }
    return QStringLiteral("NO %1").arg(point.Number) + Separator + FixedText(point.Seconds(), 2) +
           QStringLiteral("초\n") + values.join(Separator);
}

QString SummaryText(const ChartTable& table) {
    const auto isSample = [](const ChartPoint& point) { return !point.IsGap(); };
    const auto count = std::count_if(table.begin(), table.end(), isSample);
    if (count == 0) return QStringLiteral("측정값 없음");
    const ChartPoint& last = *std::find_if(table.rbegin(), table.rend(), isSample);
    QString text;
    for (std::size_t column = 0; column < ChartColumns; ++column) {
        const auto& value = last.Values[column];
        if (!value) continue;
        text += QString::fromUtf8(Names[column]) +
                WithoutTrailingZeros(FixedText(value->Value, value->Decimals)) +
                QLatin1String(Units[column]) + QStringLiteral(", ");
    }
    return text + QStringLiteral("최근 %1회").arg(count);
}

}  // namespace zps
