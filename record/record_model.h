// What a record shows: rows that come at the end and go at the front.
#pragma once

#include <QAbstractTableModel>

namespace zps {

class RecordModel : public QAbstractTableModel {
  public:
    // The text that is copied, where it is another than the one that is shown.
    static constexpr int CopiedRole = Qt::UserRole;
    // Of a column: a text as long as they usually are.
    static constexpr int SampleRole = Qt::UserRole + 1;

    // Takes in what has come since. Returns how many rows have gone at the front.
    virtual int Follow() = 0;

  protected:
    // Does `take`, which adds `count` rows; nothing where there are none.
    template <class Take>
    void AddRows(int count, const Take& take) {
        if (count == 0) return;
        beginInsertRows({}, rowCount(), rowCount() + count - 1);
        take();
        endInsertRows();
    }
    template <class Drop>
    int DropRows(int count, const Drop& drop) {
        if (count == 0) return 0;
        beginRemoveRows({}, 0, count - 1);
        drop();
        endRemoveRows();
        return count;
    }
};

}  // namespace zps
