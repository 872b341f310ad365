#include "power/panel/display_layout.h"

#include "controls/big_read_out.h"
#include "controls/number_face.h"
#include "controls/widgets.h"
#include "power/panel/plate_look.h"

#include <QGridLayout>
#include <QHBoxLayout>

namespace zps {

namespace {

constexpr int SmallText = 14;  // px
constexpr int StateText = 20;

QLabel* AddText(QBoxLayout& row, const QString& name, const QString& accessible, int stretch = 0) {
    auto* label = MakeLabel(name, {}, accessible);
    SetPixels(*label, SmallText, false);
    SetNumberFace(*label);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    row.addWidget(label, stretch);
    return label;
}

void AddNumber(QGridLayout& grid, BigReadOut& value, const QString& unit) {
    auto* label = MakeLabel({}, unit);
    SetPixels(*label, StateText, true);
    value.setFrame(false);
    const int row = grid.rowCount();
    grid.addWidget(&value, row, 0);
    grid.addWidget(label, row, 1, Qt::AlignBottom);
    grid.setRowStretch(row, 1);
}

// The name of the quantity, and what is set for it.
QLabel* AddSetValue(QGridLayout& grid, const QString& title, const QString& name,
                    const QString& accessible) {
    auto* row = new QHBoxLayout;
    row->addWidget(MakeLabel({}, title));
    auto* value = AddText(*row, name, accessible, 1);
    grid.addLayout(row, grid.rowCount(), 0, 1, 2);
    return value;
}

ReadOut* AddReadOut(QGridLayout& grid, const QString& name, const QString& text,
                    const QString& accessible, const QString& unit) {
    auto* value = new BigReadOut(name, text, accessible, QStringLiteral("600.000"), {44, 280});
    AddNumber(grid, *value, unit);
    return value;
}

void AddStates(QBoxLayout& row, PowerControls& controls) {
    controls.txtSTEP =
        MakeLabel(QStringLiteral("txtSTEP"), QStringLiteral("00"), QStringLiteral("단계 번호"));
    controls.lblMODE = new Pill(QStringLiteral("lblMODE"), {}, QStringLiteral("동작 모드"));
    for (QLabel* state : {controls.txtSTEP, static_cast<QLabel*>(controls.lblMODE)}) {
        SetPixels(*state, StateText, true);
        SetNumberFace(*state);
    }
    controls.txtSTEP->setMinimumWidth(WidthFor(*controls.txtSTEP, QStringLiteral("00")) / 2);
    ShowMode(controls, false);
    row.addWidget(MakeLabel({}, QStringLiteral("STEP")));
    row.addWidget(controls.txtSTEP);
    row.addSpacing(6);
    row.addWidget(MakeLabel({}, QStringLiteral("MODE")));
    row.addWidget(controls.lblMODE);
}

}  // namespace

QWidget* MakeReadOuts(PowerControls& controls) {
    PlateControls& plate = controls.Plate;
    auto* frame = new PlateFrame;
    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(10, 6, 10, 6);
    grid->setHorizontalSpacing(6);
    grid->setVerticalSpacing(1);
    grid->setColumnStretch(0, 1);

    auto* top = new QHBoxLayout;
    plate.lblREADING = new Pill(QStringLiteral("lblREADING"), {}, {});
    SetPixels(*plate.lblREADING, SmallText, true);
    top->addWidget(plate.lblREADING);
    plate.lblAUTORUN = AddText(*top, QStringLiteral("lblAUTORUN"), QStringLiteral("자동 운전"), 1);
    grid->addLayout(top, 0, 0, 1, 2);

    controls.txtVOLT = AddReadOut(*grid, QStringLiteral("txtVOLT"), QStringLiteral("0.00"),
                                  QStringLiteral("전압 V"), QStringLiteral("V"));
    plate.lblSETVOLT = AddSetValue(*grid, QStringLiteral("VOLTAGE"), QStringLiteral("lblSETVOLT"),
                                   QStringLiteral("전압 설정"));
    controls.txtCURR = AddReadOut(*grid, QStringLiteral("txtCURR"), QStringLiteral("0.000"),
                                  QStringLiteral("전류 A"), QStringLiteral("A"));
    plate.lblSETCURR = AddSetValue(*grid, QStringLiteral("CURRENT"), QStringLiteral("lblSETCURR"),
                                   QStringLiteral("전류 설정"));

    auto* bottom = new QHBoxLayout;
    AddStates(*bottom, controls);
    auto* watts = new BigReadOut(QStringLiteral("txtWATT"), {}, QStringLiteral("전력 W"),
                                 QStringLiteral("0000.0"), {22, 140});
    watts->setFrame(false);
    plate.txtWATT = watts;
    bottom->addWidget(watts, 1);
    auto* unit = MakeLabel({}, QStringLiteral("W"));
    SetPixels(*unit, StateText, true);
    const int last = grid->rowCount();
    grid->addLayout(bottom, last, 0);
    grid->addWidget(unit, last, 1, Qt::AlignVCenter);
    return frame;
}

}  // namespace zps
