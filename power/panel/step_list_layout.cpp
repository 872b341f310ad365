#include "power/panel/step_list_layout.h"

#include "controls/growing_frame.h"
#include "controls/number_face.h"
#include "controls/widgets.h"
#include "source/numbers.h"

#include <QGridLayout>
#include <QHBoxLayout>
#include <QPaintEvent>
#include <QPainter>
#include <QVBoxLayout>

#include <algorithm>
#include <array>

namespace zps {

namespace {

// By StepValue.
struct Column {
    std::array<EntryField*, RowCount> PowerControls::*Fields;
    const char* Name;
    const char* Quantity;
    const char* Start;   // design text
    const char* Widest;  // what it must have room for
};
constexpr std::array Columns{
    Column{&PowerControls::txPVOLT, "txPVOLT", "전압 V", "0.00", "600.000"},
    Column{&PowerControls::txPCURR, "txPCURR", "전류 A", "1.000", "600.000"},
    Column{&PowerControls::txPTIME, "txPTIME", "시간(초)", "0.00000", "50000.00000"},
    Column{&PowerControls::txPSLOPE, "txPSLOPE", "전압 변화 시간(초)", "0.00000", "50.00000"},
    Column{&PowerControls::txPOVP, "txPOVP", "과전압 보호 V", "218.0", "654.000"},
};

QString StepText(int step) {
    return QString::fromStdString(FormatStep(step));
}

constexpr int TextMargin = 5;  // px, from the digits to the line beside them

constexpr int HeadingText = 10;  // px, in the smallest table

// Lines of one pixel show between its cells.
class StepCells : public GrowingFrame {
  public:
    StepCells() : GrowingFrame({450, 200}, 3) {}

  protected:
    void paintEvent(QPaintEvent* event) override {
        QPainter painter(this);
        QColor line = palette().color(QPalette::WindowText);
        line.setAlphaF(0.33F);
        painter.fillRect(event->rect(), line);
    }
};

EntryField* MakeField(const Column& column, int row, QWidget* parent) {
    auto* field = new EntryField(QStringLiteral("%1_%2").arg(QLatin1String(column.Name)).arg(row),
                                 SpokenName(column.Fields, row), parent);
    SetNumberFace(*field);
    field->setFrame(false);
    field->setTextMargins(0, 0, TextMargin, 0);
    field->setText(QString::fromUtf8(column.Start));
    field->setAlignment(Qt::AlignRight | Qt::AlignVCenter);
    constexpr int ownMargins = 4;
    field->setMinimumWidth(
        field->fontMetrics().horizontalAdvance(QString::fromUtf8(column.Widest)) + TextMargin +
        ownMargins);
    field->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Ignored);  // the number decides
    return field;
}

void AddHeading(QGridLayout& grid, int place, const QString& text, Qt::Alignment alignment) {
    auto* heading = MakeLabel({}, text);
    heading->setAlignment(alignment | Qt::AlignBottom);
    SetPixels(*heading, HeadingText, false);
    heading->setContentsMargins(2, 3, TextMargin + 2, 2);  // as the fields have it
    heading->setAutoFillBackground(true);
    grid.addWidget(heading, 0, place);
}

void MakeHeadings(QGridLayout& grid) {
    int place = 0;
    AddHeading(grid, place++, QString::fromUtf8(StepCaption), Qt::AlignHCenter);
    for (const char* caption : ValueCaptions)
        AddHeading(grid, place++, QString::fromUtf8(caption), Qt::AlignRight);
    AddHeading(grid, place, {}, Qt::AlignRight);
}

void MakeRow(PowerControls& controls, QGridLayout& grid, int row) {
    const auto index = static_cast<std::size_t>(row);
    auto* button = new StepButton(QStringLiteral("txPSTEP_%1").arg(row));
    button->setText(StepText(row));
    button->setAccessibleName(QStringLiteral("단계 %1").arg(StepText(row)));
    button->setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Preferred);
    controls.txPSTEP.at(index) = button;
    grid.setRowStretch(row + 1, 1);
    int place = 0;
    grid.addWidget(button, row + 1, place++);
    for (const auto& column : Columns) {
        auto* field = MakeField(column, row, controls.fraSTEPLIST);
        (controls.*column.Fields).at(index) = field;
        grid.addWidget(field, row + 1, place++);
    }
}

StepScrollBar* MakeBar(QWidget* parent) {
    constexpr int width = 18;  // px
    auto* bar = new StepScrollBar(parent);
    bar->setObjectName(QStringLiteral("vscAUTOSTEP"));
    bar->setAccessibleName(QStringLiteral("단계표 이동"));
    bar->setRange(0, StepCount - RowCount);
    bar->setPageStep(RowCount);
    bar->setFocusPolicy(Qt::TabFocus);
    bar->setFixedWidth(width);
    return bar;
}

QWidget* MakeCells(PowerControls& controls) {
    auto* cells = new StepCells;
    auto* grid = new QGridLayout(cells);
    grid->setContentsMargins(1, 1, 1, 1);
    grid->setSpacing(1);
    MakeHeadings(*grid);
    for (int row = 0; row < RowCount; ++row) MakeRow(controls, *grid, row);
    controls.vscAUTOSTEP = MakeBar(cells);
    controls.fraSTEPLIST->SetBar(*controls.vscAUTOSTEP);
    grid->addWidget(controls.vscAUTOSTEP, 1, static_cast<int>(Columns.size()) + 1, RowCount, 1);
    for (auto* heading : cells->findChildren<QLabel*>()) cells->GrowText(*heading);
    for (auto* button : cells->findChildren<StepButton*>()) cells->GrowText(*button);
    for (auto* field : cells->findChildren<EntryField*>()) cells->GrowText(*field);
    return cells;
}

QLayout* MakeFoot(PowerControls& controls) {
    controls.fraSTEPLEGEND = new StepLegend(controls.fraSTEPLIST);
    controls.lblSTEPRANGE =
        MakeLabel(QStringLiteral("lblSTEPRANGE"), {}, QStringLiteral("보이는 단계"));
    SetNumberFace(*controls.lblSTEPRANGE);
    auto* foot = new QHBoxLayout;
    foot->addWidget(controls.fraSTEPLEGEND, 1);
    foot->addWidget(controls.lblSTEPRANGE);
    return foot;
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
    frame->setAccessibleName(QStringLiteral("단계표"));
    controls.fraSTEPLIST = frame;

    auto* column = new QVBoxLayout(frame);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(5);
    column->addWidget(MakeCells(controls), 1);
    column->addLayout(MakeFoot(controls));
    ShowStepRange(controls, 0);
}

void ShowStepRange(PowerControls& controls, int top) {
    QLabel& label = *controls.lblSTEPRANGE;
    label.setText(QStringLiteral("%1\u2013%2 / %3")
                      .arg(StepText(top), StepText(top + RowCount - 1), StepText(StepCount - 1)));
}

}  // namespace zps
