// Copies rows of the log to the clipboard, as text that a spreadsheet takes in.
#pragma once

#include "power/log/log_model.h"

#include <QByteArray>
#include <QPointer>
#include <QProgressDialog>
#include <QTimer>

namespace zps {

// The copy is made a few rows at a time, so the window stays alive and the supply can be switched
// off meanwhile; a long one shows its progress in a box that can call it off. The clipboard changes
// only when the whole copy is made. Rows that are removed meanwhile end the copy.
class LogCopy : public QObject {
    Q_OBJECT
  public:
    // `model` and `owner`, over which the box appears, outlive the copy.
    LogCopy(const LogModel& model, QWidget& owner);

    // Copies the rows `first` to `last`, counted from 0, below what the model has to say of
    // them. A copy that is under way is given up.
    void Start(int first, int last);
    void Cancel();

    // Whether a copy is under way.
    bool Running() const { return Pause.isActive(); }

  Q_SIGNALS:
    // So many rows are on the clipboard.
    void Copied(int rows);

  private:
    void CopySome();
    void ShowProgress();
    void Finish();

    const LogModel& Model;
    QWidget& Owner;
    QPointer<QProgressDialog> Progress;
    QTimer Pause;  // lets the window's events run between two portions
    QByteArray Text;
    int First = 0;
    int Next = 0;
    int Last = 0;
};

}  // namespace zps
