#include "power/panel/display_layout.h"

#include "controls/big_read_out.h"
#include "controls/number_face.h"
#include "controls/widgets.h"
#include "power/log/statistics_view.h"
#include "power/panel/plate_look.h"

#include <QHBoxLayout>
#include <QVBoxLayout>

namespace zps {

namespace {

constexpr int SmallText = 12;  // px
constexpr int StepText = 20;

// What is set for the number above.
QLabel* AddSetValue(QBoxLayout& column, const QString& name, const QString& accessible) {
    auto* label = MakeLabel(name, {}, accessible);
    SetPixels(*label, SmallText, false);
    SetNumberFace(*label);
    label->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    label->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);  // the widest text decides
    label->setMinimumWidth(
        label->fontMetrics().horizontalAdvance(QStringLiteral("설정 600.00 V · O.V.P 654.0 V")));
    column.addWidget(label);
    return label;
}

ReadOut* AddReadOut(QBoxLayout& column, const QString& name, const QString& text,
                    const QString& accessible, const QString& unit) {
    auto* value = new BigReadOut(name, unit, accessible, QStringLiteral("600.000"),
                                 {.Least = 30, .Most = 280});
    value->ShowValue(text);
    column.addWidget(value, 2);
    return value;
}

// What the numbers are, and which of them the supply keeps constant.
void AddStates(QBoxLayout& column, PowerControls& controls) {
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    controls.Plate.lblREADING =
        new Pill(QStringLiteral("lblREADING"), {}, QStringLiteral("표시값"));
    SetPixels(*controls.Plate.lblREADING, SmallText, true);
    controls.lblMODE = new Pill(QStringLiteral("lblMODE"), {}, QStringLiteral("동작 모드"));
    SetPixels(*controls.lblMODE, SmallText, true);
    ShowMode(controls, false);
    row->addWidget(controls.Plate.lblREADING);
    row->addStretch(1);
    row->addWidget(MakeLabel({}, QStringLiteral("MODE")));
    row->addWidget(controls.lblMODE);
    column.addLayout(row);
}

void AddStepAndPower(QBoxLayout& column, PowerControls& controls) {
    auto* row = new QHBoxLayout;
    row->setSpacing(6);
    controls.txtSTEP =
        MakeLabel(QStringLiteral("txtSTEP"), QStringLiteral("00"), QStringLiteral("단계 번호"));
    SetPixels(*controls.txtSTEP, StepText, true);
    SetNumberFace(*controls.txtSTEP);
    controls.Plate.txtWATT =
        new BigReadOut(QStringLiteral("txtWATT"), QStringLiteral("W"), QStringLiteral("전력 W"),
                       QStringLiteral("0000.0"), {.Least = 18, .Most = 120});
    row->addWidget(MakeLabel({}, QStringLiteral("STEP")));
    row->addWidget(controls.txtSTEP);
    row->addWidget(controls.Plate.txtWATT, 1);
    column.addLayout(row, 1);
}

void AddStatistics(QBoxLayout& column, PowerControls& controls) {
    controls.Plate.lblENERGY = new StatisticsView(
        QStringLiteral("lblENERGY"), QStringLiteral("운전 통계"), StatisticsView::Form::Line);
    SetPixels(*controls.Plate.lblENERGY, SmallText, false);
    SetNumberFace(*controls.Plate.lblENERGY);
    column.addWidget(controls.Plate.lblENERGY);
}

}  // namespace

QWidget* MakeReadOuts(PowerControls& controls) {
    auto* frame = new PlateFrame;
    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(8, 5, 6, 4);
    column->setSpacing(1);
    AddStates(*column, controls);
    controls.txtVOLT = AddReadOut(*column, QStringLiteral("txtVOLT"), QStringLiteral("0.00"),
                                  QStringLiteral("전압 V"), QStringLiteral("V"));
    controls.Plate.lblSETVOLT =
        AddSetValue(*column, QStringLiteral("lblSETVOLT"), QStringLiteral("전압 설정"));
    controls.txtCURR = AddReadOut(*column, QStringLiteral("txtCURR"), QStringLiteral("0.000"),
                                  QStringLiteral("전류 A"), QStringLiteral("A"));
    controls.Plate.lblSETCURR =
        AddSetValue(*column, QStringLiteral("lblSETCURR"), QStringLiteral("전류 설정"));
    AddStepAndPower(*column, controls);
    AddStatistics(*column, controls);
    frame->GrowText(*controls.Plate.lblENERGY);
    for (auto* label : frame->findChildren<QLabel*>()) frame->GrowText(*label);
    return frame;
}

}  // namespace zps
