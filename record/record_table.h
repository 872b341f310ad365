// The table of a record.
#pragma once

#include "record/record_model.h"

#include <QTableView>

namespace zps {

// Follows the newest row while it stands at the end; elsewhere it stays. Rows are selected by keys
// and mouse; Ctrl+C, Ctrl+A and the context menu copy them.
class RecordTable : public QTableView {
    Q_OBJECT
  public:
    // `model` outlives the table.
    RecordTable(const QString& name, const QString& accessibleName, RecordModel& model);

    // Takes in what has come.
    void Follow();
    void ShowEnd() { scrollToBottom(); }
    // The selected rows to the clipboard, or all if none is selected, as text that a spreadsheet
    // takes in.
    void Copy();

  Q_SIGNALS:
    // So many rows are on the clipboard.
    void Copied(int rows);

  protected:
    int sizeHintForRow(int row) const override;
    void resizeEvent(QResizeEvent* event) override;

  private:
    bool AtEnd() const;
    void AddActions();
    void SizeColumns();
    QString LineOf(int row) const;

    RecordModel& Model;
};

}  // namespace zps
