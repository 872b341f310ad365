// What a record shows: rows that come at the end and go at the front.
#pragma once

#include "controls/colours.h"

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
    // The colours of a cell that wants somebody to look.
    static QVariant MarkFor(bool alarm, int role) {
        const QColor amber(shade::Amber);
        if (alarm && role == Qt::BackgroundRole) return amber;
        if (alarm && role == Qt::ForegroundRole) return ReadableOn(amber);
        return {};
    }

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
