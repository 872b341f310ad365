// What a record shows: rows that come at the end and go at the front.
#pragma once

#include <QAbstractTableModel>

#include <span>

namespace zps {

struct RecordColumn {
    const char* Title;
    const char* Sample;  // as long as its texts usually are
};

class RecordModel : public QAbstractTableModel {
  public:
    // The text that is copied, where it is another than the one that is shown.
    static constexpr int CopiedRole = Qt::UserRole;
    // Of a column: its sample.
    static constexpr int SampleRole = Qt::UserRole + 1;

    // Takes in what has come since. Returns how many rows have gone at the front.
    virtual int Follow() = 0;

    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant headerData(int section, Qt::Orientation orientation, int role) const override;

  protected:
    // `columns` outlive the model.
    explicit RecordModel(std::span<const RecordColumn> columns) : Columns(columns) {}

    // The colours of a cell that wants somebody to look.
    static QVariant MarkFor(bool alarm, int role);

    // Does `take`, which adds `count` rows; nothing where there are none.
    template <class Take>
    void AddRows(int count, const Take& take) {
        if (count == 0) return;
        beginInsertRows({}, rowCount(), rowCount() + count - 1);
        take();
        endInsertRows();
    }
    // The same with rows that go; returns how many.
    template <class Drop>
    int DropRows(int count, const Drop& drop) {
        if (count == 0) return 0;
        beginRemoveRows({}, 0, count - 1);
        drop();
        endRemoveRows();
        return count;
    }

  private:
    const std::span<const RecordColumn> Columns;
};

}  // namespace zps
