#include "power/log/log_model.h"

#include "controls/number_text.h"
#include "power/log/statistics_text.h"
#include "source/numbers.h"
#include "source/reply.h"

#include <algorithm>

namespace zps {

namespace {

QString SecondsText(std::uint32_t hundredths) {
    return QString::number(hundredths / 100) + u'.' + QChar(u'0' + hundredths / 10 % 10) +
           QChar(u'0' + hundredths % 10);
}

// All that tells the columns apart. They are of one width.
struct Column {
    const char* Title;
    QString (*Text)(const Sample& sample, std::int32_t number);
};
constexpr std::array<Column, LogColumns> Columns{{
    {"NO", [](const Sample& /*of*/, std::int32_t number) { return QString::number(number); }},
    {"TIME(sec)", [](const Sample& of, std::int32_t) { return SecondsText(of.Hundredths); }},
    {"STEP",
     [](const Sample& of, std::int32_t) { return QString::fromStdString(FormatStep(of.Step)); }},
    {"Voltage(V)",
     [](const Sample& of, std::int32_t) { return FixedText(of.Volts, of.VoltDecimals); }},
    {"Current(A)",
     [](const Sample& of, std::int32_t) { return FixedText(of.Amps, of.CurrDecimals); }},
}};

std::optional<Reading> NumberIn(const QString& text) {
    bool isNumber = false;
    const float number = text.toFloat(&isNumber);
    if (!isNumber) return std::nullopt;
    const auto point = text.indexOf(u'.');
    return Reading{number, point < 0 ? 0 : static_cast<int>(text.size() - point - 1)};
}

// Cells and titles have the same alignment.
QVariant TextOrAlignment(int role, const QString& text) {
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? QVariant(text) : QVariant();
}

}  // namespace

LogModel::LogModel(QObject* parent) : QAbstractTableModel(parent) {}

void LogModel::SetZeroRow(const QString& step, const QString& volts, const QString& amps) {
    ZeroRow = {QStringLiteral("0"), QStringLiteral("0"), step, volts, amps};
    Q_EMIT dataChanged(index(0, 0), index(0, LogColumns - 1));
}

void LogModel::Append(const Sample& sample, std::int32_t number, const RunOrigin& origin) {
    const int row = rowCount();
    beginInsertRows({}, row, row);
    Samples.Append(sample, number);
    Sums.Appended();
    if (Samples.RunAt(Samples.Count() - 1) == Origins.size()) Origins.push_back(origin);
    OverTime.Append();
    endInsertRows();
}

void LogModel::ClearSamples() {
    if (Samples.Count() == 0) return;
    beginRemoveRows({}, 1, rowCount() - 1);
    Samples.Clear();
    Sums.Clear();
    Origins.clear();
    OverTime.Clear();
    endRemoveRows();
}

ChartPoint LogModel::PointAt(int row) const {
    if (row >= rowCount()) return {};
    if (row == 0) return {{NumberIn(ZeroRow[LogColumns - 2]), NumberIn(ZeroRow[LogColumns - 1])}};
    return OverTime.PointAt(static_cast<std::size_t>(row - 1));
}

RangeSums LogModel::SumsOf(int first, int last) const {
    if (last < 1) return {};
    return Sums.Over(static_cast<std::size_t>(std::max(first, 1) - 1),
                     static_cast<std::size_t>(last - 1));
}

QString LogModel::CopyHead(int first, int last) const {
    QString text = ProgramText();
    const RangeSums sums = SumsOf(first, last);
    if (sums.Samples > 0) text += OriginsOf(sums) + StatisticsTable(QStringLiteral("통계"), sums);
    text += u'\n';
    for (const Column& column : Columns) text += QLatin1String(column.Title) + u'\t';
    return text + QStringLiteral("시각\t모드\t고장\t상태 바이트\n");
}

QString LogModel::CopyLine(int row) const {
    if (row == 0) return QStringLiteral("0\t0\t\t\t\t\t\t\t\n");
    const auto index = static_cast<std::size_t>(row - 1);
    const Sample sample = Samples.At(index);
    const std::int32_t number = Samples.NumberAt(index);
    const auto passed = std::chrono::duration<std::uint32_t, std::centi>(sample.Hundredths);
    const auto is = [&sample](std::uint8_t bit) { return (sample.Status & bit) != 0; };
    QString text;
    for (const Column& column : Columns) text += column.Text(sample, number) + u'\t';
    text += ClockText(Origins[Samples.RunAt(index)].Start + passed);
    text += is(status::ConstantCurrent) ? QStringLiteral("\tCC") : QStringLiteral("\tCV");
    text += is(status::Fault) ? QStringLiteral("\t1") : QStringLiteral("\t0");
    return text + QStringLiteral("\t0x%1\n").arg(sample.Status, 2, 16, QLatin1Char('0'));
}

QString LogModel::OriginsOf(const RangeSums& sums) const {
    QString text;
    for (std::uint32_t run = sums.FirstRun; run <= sums.LastRun; ++run)
        text += OriginText(Origins[run]);
    return text;
}

// The zero row above the oldest run is that run's beginning.
bool LogModel::StartsRun(int row) const {
    if (row < 2) return false;
    const auto index = static_cast<std::size_t>(row - 1);
    return Samples.RunAt(index) != Samples.RunAt(index - 1);
}

int LogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(Samples.Count()) + 1;
}

int LogModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : LogColumns;
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    if (role == StartsRunRole) return StartsRun(index.row());
    if (role != Qt::DisplayRole) return TextOrAlignment(role, {});
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    if (row == 0) return ZeroRow[column];
    return Columns[column].Text(Samples.At(row - 1), Samples.NumberAt(row - 1));
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= LogColumns) return {};
    return TextOrAlignment(role,
                           QString::fromLatin1(Columns[static_cast<std::size_t>(section)].Title));
}

}  // namespace zps
