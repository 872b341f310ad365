#include "power/panel/display_layout.h"

#include "controls/big_read_out.h"
#include "controls/widgets.h"

#include <QGridLayout>
#include <QGroupBox>
#include <QHBoxLayout>

namespace zps {

namespace {

ReadOut* AddReadOut(QGridLayout& grid, int row, const QString& title, const QString& unit,
                    const QString& name, const QString& text, const QString& accessible) {
    auto* value = new BigReadOut(name, text, accessible, QStringLiteral("600.0000"));
    auto* unitLabel = MakeLabel({}, unit);
    Enlarge(*unitLabel, 1.8);
    grid.addWidget(MakeLabel({}, title), row, 0);
    grid.addWidget(value, row, 1);
    grid.addWidget(unitLabel, row, 2);
    grid.setRowStretch(row, 1);
    return value;
}

QLabel* AddState(QHBoxLayout& row, const QString& title, const QString& name, const QString& text,
                 const QString& accessible) {
    auto* value = MakeLabel(name, text, accessible);
    Enlarge(*value, 1.8);
    value->setMinimumWidth(WidthFor(*value, QStringLiteral("00")));
    row.addWidget(MakeLabel({}, title));
    row.addWidget(value);
    return value;
}

}  // namespace

QWidget* MakeReadOuts(PowerControls& controls) {
    auto* box = new QGroupBox(QStringLiteral("표시"));
    auto* grid = new QGridLayout(box);
    controls.txtVOLT =
        AddReadOut(*grid, 0, QStringLiteral("VOLTAGE"), QStringLiteral("V"),
                   QStringLiteral("txtVOLT"), QStringLiteral("0.00"), QStringLiteral("전압 V"));
    controls.txtCURR =
        AddReadOut(*grid, 1, QStringLiteral("CURRENT"), QStringLiteral("A"),
                   QStringLiteral("txtCURR"), QStringLiteral("0.000"), QStringLiteral("전류 A"));
    auto* states = new QHBoxLayout;
    controls.txtSTEP = AddState(*states, QStringLiteral("STEP"), QStringLiteral("txtSTEP"),
                                QStringLiteral("00"), QStringLiteral("단계 번호"));
    states->addSpacing(24);
    controls.lblMODE = AddState(*states, QStringLiteral("MODE"), QStringLiteral("lblMODE"),
                                QStringLiteral("CV"), QStringLiteral("동작 모드"));
    states->addStretch(1);
    grid->addLayout(states, 2, 0, 1, 3);
    return box;
}

}  // namespace zps
