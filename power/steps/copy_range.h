// Asks which steps are to be copied.
#pragma once

#include <QDialog>
#include <QSpinBox>

#include <functional>

namespace zps {

// Leaves the window behind it usable: the output must be within reach at any time.
class CopyRange : public QDialog {
  public:
    // `copy` is called with the first and the last step when it has been confirmed.
    CopyRange(QWidget& window, std::function<void(int first, int last)> copy);

    // Shows itself, with these steps at first.
    void Ask(int first, int last);

  private:
    QSpinBox* MakeStepBox(const QString& name, const QString& spokenName);
    void LayOut();

    std::function<void(int, int)> Copy;
    QSpinBox* txtFIRST;
    QSpinBox* txtLAST;
};

}  // namespace zps
