#include "record/history_model.h"

#include <algorithm>
#include <array>

namespace zps {

namespace {

constexpr std::array HistoryColumns{RecordColumn{"시각", "2026-00-00 00:00:00.000"},
                                    RecordColumn{"종류", "통신 끊김"}, RecordColumn{"내용", ""}};

}  // namespace

HistoryModel::HistoryModel(const History& history) : RecordModel(HistoryColumns), Past(history) {}

int HistoryModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(End - First);
}

int HistoryModel::Follow() {
    const std::uint64_t kept = std::clamp(Past.First(), First, End);
    const int gone = DropRows(static_cast<int>(kept - First), [&] { First = kept; });
    if (First == End) First = End = std::max(End, Past.First());
    AddRows(static_cast<int>(Past.End() - End), [&] { End = Past.End(); });
    return gone;
}

QVariant HistoryModel::data(const QModelIndex& index, int role) const {
    const std::uint64_t number = First + static_cast<std::uint64_t>(index.row());
    if (number < Past.First()) return {};  // it has just gone
    const PanelEvent& event = Past.Get(number);
    const bool text = role == Qt::DisplayRole || role == Qt::ToolTipRole || role == CopiedRole;
    if (!text) return index.column() == 1 ? MarkFor(IsAlarm(event.Kind), role) : QVariant();
    switch (index.column()) {
        case 0:
            return event.At.toString(QStringLiteral("yyyy-MM-dd HH:mm:ss.zzz"));
        case 1:
            return NameOf(event.Kind);
        default:
            return event.Text.simplified();
    }
}

}  // namespace zps
