#include "set_manual/set_manual_controls.h"

#include "controls/colours.h"
#include "controls/read_out.h"
#include "controls/shortcuts.h"
#include "controls/widgets.h"
#include "set_manual/models.h"
#include "set_manual/result_look.h"

#include <QFormLayout>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zps {

namespace {

void MakePorts(SetManualControls& controls) {
    controls.frmCOMMPORT = new QGroupBox(QStringLiteral("RS-232 Port SETTING"));
    controls.frmCOMMPORT->setObjectName(QStringLiteral("frmCOMMPORT_1"));
    auto* row = new QHBoxLayout(controls.frmCOMMPORT);
    row->setSpacing(2);
    for (int number = 1; number <= PortCount; ++number) {
        auto* port = new QRadioButton(QStringLiteral("COM%1").arg(number));
        port->setObjectName(QStringLiteral("optPORT_%1").arg(number));
        port->setAccessibleName(QStringLiteral("통신 포트 COM%1").arg(number));
        port->setChecked(number == 1);
        PaintBackground(*port, Colour::LightGrey);
        controls.Ports.at(static_cast<std::size_t>(number - 1)) = port;
        port->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Expanding);
        port->setMinimumHeight(port->fontMetrics().height() * 2);
        row->addWidget(port);
    }
}

QComboBox* MakeList(const QString& name, const QString& accessible) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    list->setAccessibleName(accessible);
    return list;
}

ReadOut* MakeRating(const QString& name, const QString& accessible) {
    auto* rating = new ReadOut(name, QStringLiteral("0"), accessible);
    rating->setEnabled(false);
    QPalette palette = rating->palette();  // display only, but to be read
    palette.setColor(QPalette::Disabled, QPalette::Text,
                     palette.color(QPalette::Active, QPalette::Text));
    rating->setPalette(palette);
    return rating;
}

void MakePower(SetManualControls& controls) {
    controls.frmPOW_SETTING = new QGroupBox(QStringLiteral("POWER SETTING"));
    controls.frmPOW_SETTING->setObjectName(QStringLiteral("frmPOW_SETTING"));
    controls.cmbMODEL = MakeList(QStringLiteral("cmbMODEL"), QStringLiteral("모델 이름"));
    controls.cmbMODEL->setEditable(true);
    controls.cmbMODEL->setInsertPolicy(QComboBox::NoInsert);
    controls.cmbMODEL->setCompleter(nullptr);
    for (const char* model : ModelNames) controls.cmbMODEL->addItem(QString::fromUtf8(model));
    controls.cmbMODEL->setCurrentText(QStringLiteral("ZPS-1000"));
    controls.POWERVoltage =
        MakeRating(QStringLiteral("POWERVoltage"), QStringLiteral("최대 전압 V"));
    controls.POWERCurrent =
        MakeRating(QStringLiteral("POWERCurrent"), QStringLiteral("최대 전류 A"));
    controls.cmbADDR = MakeList(QStringLiteral("cmbADDR"), QStringLiteral("전원 장치 주소"));
    for (int address = 1; address <= HighestAddress; ++address) {
        controls.cmbADDR->addItem(QString::number(address));
    }
    controls.cmbMODEL->lineEdit()->setAccessibleName(controls.cmbMODEL->accessibleName());
    auto* form = new QFormLayout(controls.frmPOW_SETTING);
    const auto addRow = [form](const char* name, const char* text, QWidget* field) {
        auto* label =
            MakeLabel(QString::fromUtf8(name), QString::fromUtf8(text), field->accessibleName());
        label->setBuddy(field);  // on some desktops a list is known by its label alone
        form->addRow(label, field);
    };
    addRow("Label6", "Model No.", controls.cmbMODEL);
    addRow("Label2_0", "Max.Voltage", controls.POWERVoltage);
    addRow("Label2_2", "Max.Current", controls.POWERCurrent);
    addRow("Label1", "Address", controls.cmbADDR);
}

QLabel* MakeResult(const QString& name, const QString& accessible) {
    auto* result = MakeLabel(name, QString::fromUtf8(NoResultLook.Caption), accessible);
    result->setAlignment(Qt::AlignCenter);
    result->setFrameStyle(static_cast<int>(QFrame::Panel) | static_cast<int>(QFrame::Sunken));
    result->setMinimumWidth(WidthFor(*result, QString::fromUtf8(LookOf(Reply::BadAck).Caption)));
    PaintBackground(*result, NoResultLook.Paint);
    return result;
}

QGridLayout* MakeChecks(SetManualControls& controls) {
    controls.cmdZPS_ENQ = MakeButton(QStringLiteral("cmdZPS_ENQ"), QStringLiteral("통신 확인"));
    GiveKey(*controls.cmdZPS_ENQ, Qt::Key_F2, QStringLiteral("전원 장치가 응답하는지 확인"));
    PaintBackground(*controls.cmdZPS_ENQ, Colour::LightGreen);
    controls.lblZPS_ENQ =
        MakeResult(QStringLiteral("lblZPS_ENQ"), QStringLiteral("통신 확인 결과"));
    controls.cmdZPS_DLE = MakeButton(QStringLiteral("cmdZPS_DLE"), QStringLiteral("DATA 확인"));
    GiveKey(*controls.cmdZPS_DLE, Qt::Key_F3, QStringLiteral("전원 장치의 정격 읽기"));
    controls.lblZPS_DLE =
        MakeResult(QStringLiteral("lblZPS_DLE"), QStringLiteral("DATA 확인 결과"));
    auto* grid = new QGridLayout;
    grid->addWidget(controls.cmdZPS_ENQ, 0, 0);
    grid->addWidget(controls.lblZPS_ENQ, 0, 1);
    grid->addWidget(controls.cmdZPS_DLE, 1, 0);
    grid->addWidget(controls.lblZPS_DLE, 1, 1);
    grid->setColumnStretch(1, 1);
    return grid;
}

}  // namespace

SetManualControls MakeSetManualControls(QWidget& window) {
    SetManualControls controls;
    QFont bold = window.font();
    Embolden(bold);
    window.setFont(bold);
    auto* column = new QVBoxLayout(&window);
    MakePorts(controls);
    MakePower(controls);
    column->addWidget(controls.frmCOMMPORT);
    column->addWidget(controls.frmPOW_SETTING);
    column->addLayout(MakeChecks(controls));
    return controls;
}

}  // namespace zps
