#include "record/record_model.h"

#include "controls/colours.h"

namespace zps {

int RecordModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(Columns.size());
}

QVariant RecordModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (orientation != Qt::Horizontal) return {};
    const RecordColumn& column = Columns[static_cast<std::size_t>(section)];
    if (role == Qt::DisplayRole) return QString::fromUtf8(column.Title);
    if (role == SampleRole) return QString::fromUtf8(column.Sample);
    if (role == Qt::TextAlignmentRole) return static_cast<int>(Qt::AlignLeft | Qt::AlignVCenter);
    return {};
}

QVariant RecordModel::MarkFor(bool alarm, int role) {
    const QColor amber(shade::Amber);
    if (alarm && role == Qt::BackgroundRole) return amber;
    if (alarm && role == Qt::ForegroundRole) return ReadableOn(amber);
    return {};
}

}  // namespace zps
