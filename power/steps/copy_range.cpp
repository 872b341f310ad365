#include "power/steps/copy_range.h"

#include "source/numbers.h"
#include "source/step_table.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>

#include <algorithm>
#include <utility>

namespace zps {

namespace {

// Shows numbers as they stand on the step buttons.
class StepBox : public QSpinBox {
  public:
    using QSpinBox::QSpinBox;

  protected:
    QString textFromValue(int step) const override {
        return QString::fromStdString(FormatStep(step));
    }
};

}  // namespace

CopyRange::CopyRange(QWidget& window, std::function<void(int, int)> copy)
    : QDialog(&window),
      Copy(std::move(copy)),
      txtFIRST(MakeStepBox(QStringLiteral("txtFIRST"), QStringLiteral("첫 단계"))),
      txtLAST(MakeStepBox(QStringLiteral("txtLAST"), QStringLiteral("마지막 단계"))) {
    setObjectName(QStringLiteral("COPY_RANGE"));
    setWindowTitle(QStringLiteral("단계표 복사"));
    LayOut();
    connect(this, &QDialog::accepted, this, [this] {
        const auto [first, last] = std::minmax({txtFIRST->value(), txtLAST->value()});
        Copy(first, last);
    });
}

QSpinBox* CopyRange::MakeStepBox(const QString& name, const QString& spokenName) {
    auto* box = new StepBox(this);
    box->setObjectName(name);
    box->setAccessibleName(spokenName);
    box->setRange(0, StepCount - 1);
    return box;
}

void CopyRange::LayOut() {
    auto* form = new QFormLayout(this);
    form->addRow(QStringLiteral("첫 단계(&F)"), txtFIRST);
    form->addRow(QStringLiteral("마지막 단계(&L)"), txtLAST);
    auto* buttons = new QDialogButtonBox(this);
    auto* copy = buttons->addButton(QStringLiteral("복사"), QDialogButtonBox::AcceptRole);
    copy->setObjectName(QStringLiteral("cmdCOPY"));
    copy->setDefault(true);
    buttons->addButton(QStringLiteral("취소"), QDialogButtonBox::RejectRole);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
}

void CopyRange::Ask(int first, int last) {
    txtFIRST->setValue(first);
    txtLAST->setValue(last);
    show();
    activateWindow();
    txtFIRST->setFocus();
    txtFIRST->selectAll();
}

}  // namespace zps
