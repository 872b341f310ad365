#include "set_manual/set_manual_controls.h"

#include "controls/colours.h"
#include "controls/faded.h"
#include "controls/number_face.h"
#include "controls/shortcuts.h"
#include "controls/show_only.h"
#include "controls/widgets.h"
#include "set_manual/models.h"
#include "set_manual/result_look.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zps {

namespace {

constexpr int WindowWidth = 420;
constexpr int AddressesInView = 10;
constexpr int ItemHeight = 22;
constexpr int ResultHeight = 30;

// A line of our own words beside the given ones.
QLabel* MakeNote(const QString& name, const QString& text) {
    auto* note = MakeLabel(name, text);
    QFont font = note->font();
    font.setBold(false);
    note->setFont(font);
    return note;
}

QGroupBox* MakeGroup(const QString& name, const QString& title) {
    auto* box = new QGroupBox(title);
    box->setObjectName(name);
    return box;
}

void MakePorts(SetManualControls& controls) {
    controls.frmCOMMPORT =
        MakeGroup(QStringLiteral("frmCOMMPORT_1"), QStringLiteral("RS-232 Port SETTING"));
    auto* row = new QHBoxLayout(controls.frmCOMMPORT);
    row->setSpacing(4);
    for (int number = 1; number <= PortCount; ++number) {
        auto* port = new PortOption(number);
        port->setChecked(number == 1);
        controls.Ports.at(static_cast<std::size_t>(number - 1)) = port;
        row->addWidget(port, 1);
    }
}

void AddItem(QComboBox& list, const QString& text) {
    list.addItem(text);
    list.setItemData(list.count() - 1, QSize(0, ItemHeight), Qt::SizeHintRole);
}

QComboBox* MakeList(const QString& name, const QString& accessible) {
    auto* list = new QComboBox;
    list->setObjectName(name);
    list->setAccessibleName(accessible);
    return list;
}

ReadOut* MakeRating(const QString& name, const QString& accessible) {
    auto* rating = new ReadOut(name, QStringLiteral("0"), accessible);
    SetNumberFace(*rating);
    ShowOnly(*rating);
    return rating;
}

void MakeAddress(SetManualControls& controls) {
    controls.cmbADDR =
        MakeList(QStringLiteral("cmbADDR"), QStringLiteral("Address 전원 장치 주소"));
    controls.cmbADDR->setMaxVisibleItems(AddressesInView);
    for (int address = 1; address <= HighestAddress; ++address) {
        AddItem(*controls.cmbADDR, QString::number(address));
    }
}

void MakeModel(SetManualControls& controls) {
    controls.cmbMODEL = MakeList(QStringLiteral("cmbMODEL"), QStringLiteral("Model No. 모델 이름"));
    controls.cmbMODEL->setEditable(true);
    controls.cmbMODEL->setInsertPolicy(QComboBox::NoInsert);
    controls.cmbMODEL->setCompleter(nullptr);
    for (const char* model : ModelNames) AddItem(*controls.cmbMODEL, QString::fromUtf8(model));
    controls.cmbMODEL->setCurrentText(QStringLiteral("ZPS-1000"));
    controls.cmbMODEL->lineEdit()->setAccessibleName(controls.cmbMODEL->accessibleName());
}

// The address first: it is what is chosen, and the others follow from it.
void MakePower(SetManualControls& controls) {
    controls.frmPOW_SETTING =
        MakeGroup(QStringLiteral("frmPOW_SETTING"), QStringLiteral("POWER SETTING"));
    MakeAddress(controls);
    MakeModel(controls);
    controls.POWERVoltage =
        MakeRating(QStringLiteral("POWERVoltage"), QStringLiteral("Max.Voltage 정격 전압 V"));
    controls.POWERCurrent =
        MakeRating(QStringLiteral("POWERCurrent"), QStringLiteral("Max.Current 정격 전류 A"));
    auto* grid = new QGridLayout(controls.frmPOW_SETTING);
    grid->setColumnStretch(1, 1);
    grid->setHorizontalSpacing(10);
    const auto addRow = [grid](int row, const char* name, const char* text, QWidget* field) {
        auto* label =
            MakeLabel(QString::fromUtf8(name), QString::fromUtf8(text), field->accessibleName());
        label->setBuddy(field);  // on some desktops a list is known by its label alone
        grid->addWidget(label, row, 0);
        grid->addWidget(field, row, 1);
    };
    const auto addUnit = [grid](int row, const char* name, const char* unit) {
        grid->addWidget(MakeLabel(QString::fromUtf8(name), QString::fromUtf8(unit)), row, 2);
    };
    addRow(0, "Label1", "Address", controls.cmbADDR);
    grid->addWidget(MakeNote(QStringLiteral("lblOUTPUT_OFF"),
                             QStringLiteral("고르면 그 전원 장치의 출력이 꺼집니다")),
                    1, 1, 1, 2);
    addRow(2, "Label6", "Model No.", controls.cmbMODEL);
    addRow(3, "Label2_0", "Max.Voltage", controls.POWERVoltage);
    addUnit(3, "lblVOLT_UNIT", "V");
    addRow(4, "Label2_2", "Max.Current", controls.POWERCurrent);
    addUnit(4, "lblCURR_UNIT", "A");
}

SignLabel* MakeResult(const QString& name, const QString& accessible) {
    auto* result = new SignLabel(name, QString::fromUtf8(NoResultLook.Caption), accessible);
    result->setAlignment(Qt::AlignCenter);
    result->setMinimumSize(WidthFor(*result, QString::fromUtf8(LookOf(Reply::BadAck).Caption)) +
                               result->contentsMargins().left(),
                           ResultHeight);
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
    for (QPushButton* button : {controls.cmdZPS_ENQ, controls.cmdZPS_DLE})
        button->setMinimumHeight(ResultHeight);
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
    window.setMinimumWidth(WindowWidth);
    MakePorts(controls);
    MakePower(controls);
    controls.fraSTAGES = new StageRail;
    controls.lblNEXT = MakeNote(QStringLiteral("lblNEXT"), {});
    controls.lblNEXT->setWordWrap(true);
    controls.lblNEXT->setMinimumHeight(2 * controls.lblNEXT->fontMetrics().lineSpacing() + 4);
    auto* column = new QVBoxLayout(&window);
    column->addWidget(controls.frmCOMMPORT);
    column->addWidget(controls.frmPOW_SETTING);
    column->addWidget(controls.fraSTAGES);
    column->addLayout(MakeChecks(controls));
    column->addWidget(controls.lblNEXT);
    return controls;
}

}  // namespace zps
