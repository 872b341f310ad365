#include "power/panel/step_list_layout.h"

#include "controls/widgets.h"
#include "source/numbers.h"

#include <QGridLayout>

#include <algorithm>
#include <array>

namespace zps {

namespace {

struct Column {
    std::array<EntryField*, RowCount> PowerControls::*Fields;
    const char* Name;
    const char* Heading;
    const char* Quantity;
    const char* Start;   // design text
    const char* Widest;  // what it must have room for
};
constexpr std::array Columns{
    Column{&PowerControls::txPVOLT, "txPVOLT", "VOLTAGE(V)", "전압 V", "0.00", "600.000"},
    Column{&PowerControls::txPCURR, "txPCURR", "CURRENT(A)", "전류 A", "1.000", "600.000"},
    Column{&PowerControls::txPTIME, "txPTIME", "TIME(sec)", "시간 초", "0.00000", "50000.00000"},
    Column{&PowerControls::txPSLOPE, "txPSLOPE", "SLOPE(sec)", "기울기 시간 초", "0.00000",
           "50.00000"},
    Column{&PowerControls::txPOVP, "txPOVP", "O.V.P(V)", "과전압 보호 V", "218.0", "654.000"},
};

QString StepText(int step) {
    return QString::fromStdString(FormatStep(step));
}

QPushButton* MakeStepButton(int row) {
    auto* button = MakeButton(QStringLiteral("txPSTEP_%1").arg(row), StepText(row),
                              QStringLiteral("단계 %1").arg(StepText(row)));
    button->setMinimumWidth(WidthFor(*button, QStringLiteral("0000")));
    LetGrow(*button);
    return button;
}

EntryField* MakeField(const Column& column, int row, QWidget* parent) {
    auto* field = new EntryField(QStringLiteral("%1_%2").arg(QLatin1String(column.Name)).arg(row),
                                 SpokenName(column.Fields, row), parent);
    field->setText(QString::fromUtf8(column.Start));
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    field->setMinimumWidth(WidthFor(*field, QString::fromUtf8(column.Widest)));
    LetGrow(*field);
    return field;
}

void MakeHeadings(QGridLayout& grid) {
    int place = 0;
    const auto add = [&](const QString& text) {
        auto* heading = MakeLabel({}, text);
        heading->setAlignment(Qt::AlignCenter);
        grid.addWidget(heading, 0, place++);
    };
    add(QStringLiteral("STEP"));
    for (const auto& column : Columns) add(QString::fromUtf8(column.Heading));
}

void MakeRow(PowerControls& controls, QGridLayout& grid, int row) {
    const auto index = static_cast<std::size_t>(row);
    controls.txPSTEP.at(index) = MakeStepButton(row);
    int place = 0;
    grid.addWidget(controls.txPSTEP.at(index), row + 1, place++);
    for (const auto& column : Columns) {
        auto* field = MakeField(column, row, controls.fraSTEPLIST);
        (controls.*column.Fields).at(index) = field;
        grid.addWidget(field, row + 1, place++);
    }
}

}  // namespace

QString SpokenName(std::array<EntryField*, RowCount> PowerControls::*column, int step) {
    const auto* found = std::find_if(Columns.begin(), Columns.end(),
                                     [column](const Column& one) { return one.Fields == column; });
    return QStringLiteral("단계 %1 %2").arg(StepText(step), QString::fromUtf8(found->Quantity));
}

void MakeStepList(PowerControls& controls) {
    auto* frame = new StepListFrame;
    frame->setObjectName(QStringLiteral("fraSTEPLIST"));
    frame->setAccessibleName(QStringLiteral("단계 목록"));
    controls.fraSTEPLIST = frame;

    auto* grid = new QGridLayout(frame);
    grid->setContentsMargins(0, 0, 0, 0);
    grid->setSpacing(3);
    MakeHeadings(*grid);
    for (int row = 0; row < RowCount; ++row) MakeRow(controls, *grid, row);

    auto* bar = new StepScrollBar(frame);
    bar->setObjectName(QStringLiteral("vscAUTOSTEP"));
    bar->setAccessibleName(QStringLiteral("단계 목록 이동"));
    bar->setRange(0, StepCount - RowCount);
    bar->setPageStep(RowCount);
    bar->setFocusPolicy(Qt::TabFocus);
    controls.vscAUTOSTEP = bar;
    frame->SetBar(*bar);
    grid->addWidget(bar, 1, static_cast<int>(Columns.size()) + 1, RowCount, 1);
}

}  // namespace zps
