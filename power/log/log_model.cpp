#include "power/log/log_model.h"

#include "source/numbers.h"

namespace zps {

namespace {

constexpr std::array Titles{"NO", "TIME(sec)", "STEP", "Voltage(V)", "Current(A)"};
static_assert(Titles.size() == LogColumns);

QString ValueText(float value, int decimals) {
    if (decimals < 0) return {};
    return QString::fromStdString(FormatFixed(value, decimals));
}

QString SecondsText(std::uint32_t hundredths) {
    return QString::number(hundredths / 100) + u'.' + QChar(u'0' + hundredths / 10 % 10) +
           QChar(u'0' + hundredths % 10);
}

// Cells and titles have the same alignment.
QVariant TextOrAlignment(int role, const QString& text) {
    if (role == Qt::TextAlignmentRole) return QVariant(Qt::AlignRight | Qt::AlignVCenter);
    return role == Qt::DisplayRole ? QVariant(text) : QVariant();
}

}  // namespace

LogModel::LogModel(QObject* parent) : QAbstractTableModel(parent) {}

void LogModel::SetZeroRow(const RowTexts& texts) {
    ZeroRow = texts;
    Q_EMIT dataChanged(index(0, 0), index(0, LogColumns - 1));
}

void LogModel::Append(const Sample& sample, std::int32_t number) {
    const int row = rowCount();
    beginInsertRows({}, row, row);
    Samples.Append(sample, number);
    endInsertRows();
}

void LogModel::ClearSamples() {
    if (Samples.Count() == 0) return;
    beginRemoveRows({}, 1, rowCount() - 1);
    Samples.Clear();
    endRemoveRows();
}

int LogModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(Samples.Count()) + 1;
}

int LogModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : LogColumns;
}

QVariant LogModel::data(const QModelIndex& index, int role) const {
    if (!checkIndex(index, CheckIndexOption::IndexIsValid)) return {};
    if (role != Qt::DisplayRole) return TextOrAlignment(role, {});
    const auto row = static_cast<std::size_t>(index.row());
    const auto column = static_cast<std::size_t>(index.column());
    return row == 0 ? ZeroRow[column] : SampleText(row - 1, static_cast<LogColumn>(column));
}

QVariant LogModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal || section < 0 || section >= LogColumns) return {};
    return TextOrAlignment(role, QString::fromLatin1(Titles[static_cast<std::size_t>(section)]));
}

QString LogModel::SampleText(std::size_t sample, LogColumn column) const {
    const Sample values = Samples.At(sample);
    switch (column) {
        case LogColumn::No:
            return QString::number(Samples.NumberAt(sample));
        case LogColumn::Time:
            return SecondsText(values.Hundredths);
        case LogColumn::Step:
            return QString::fromStdString(FormatStep(values.Step));
        case LogColumn::Voltage:
            return ValueText(values.Volts, values.VoltDecimals);
        case LogColumn::Current:
            return ValueText(values.Amps, values.CurrDecimals);
    }
    return {};
}

}  // namespace zps
