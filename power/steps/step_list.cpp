#include "power/steps/step_list.h"

#include "controls/colours.h"
#include "power/panel/step_list_layout.h"
#include "source/numbers.h"

#include <QStringList>

#include <algorithm>
#include <utility>

namespace zps {

StepList::StepList(PowerParts& parts, Surround around) : Parts(parts), Around(std::move(around)) {
    StepListFrame& frame = *Parts.Controls.fraSTEPLIST;
    frame.OnEnabled = [this] { Repaint(); };
    frame.OnBarredPress = [this](const QWidget& control) { Point(control); };
}

StepList::~StepList() {
    StepListFrame& frame = *Parts.Controls.fraSTEPLIST;
    frame.OnEnabled = [] {};
    frame.OnBarredPress = [](const QWidget&) {};
}

void StepList::PaintRow(int row, RowState state) {
    const RowLook look = LookOf(state);
    PaintButton(row, look);
    for (const StepField& kind : StepFields()) PaintField(kind, row, look);
}

void StepList::PaintButton(int row, const RowLook& look) {
    StepButton& button = *Parts.Controls.txPSTEP.at(static_cast<std::size_t>(row));
    Paint(button, look.Button);
    const StepMark mark = MarkOf(row);
    button.SetMark(mark);
    QStringList words{look.Spoken};
    if (mark != StepMark::None && Spoken(mark) != look.Spoken) words += Spoken(mark);
    const QString told = words.join(QStringLiteral(", "));
    if (told != button.accessibleDescription()) button.setAccessibleDescription(told);
    const bool sends = StepOf(row) != Selected;  // a click on the selected step does nothing more
    const QString tip = sends ? QStringLiteral("번호를 누르면 송신 (%1)").arg(told) : told;
    if (tip != button.toolTip()) button.setToolTip(tip);
}

void StepList::PaintField(const StepField& kind, int row, const RowLook& look) {
    EntryField& field = *(Parts.Controls.*kind.Fields).at(static_cast<std::size_t>(row));
    Paint(field, look.Fields);
    field.MarkRefused((Around.Held.Refused(StepOf(row)) & Only(kind.Value)).any());
    field.SetHint(HintFor(kind, row));
}

// In a list that can't be used at all the texts stand back as everywhere else; in a row that can't
// be used they are still to be read.
void StepList::Paint(QWidget& cell, const QColor& background) const {
    const bool usable = Parts.Controls.fraSTEPLIST->isEnabled();
    PaintBackground(cell, background, usable ? QColor() : FaintOn(background));
}

StepMark StepList::MarkOf(int row) const {
    const int step = StepOf(row);
    if (Around.RunningStep() == step) return StepMark::Running;
    if (Around.Held.Refused(step).any()) return StepMark::Refused;
    if (BeingEdited(row) || Around.Held.Unsent(step).any()) return StepMark::Changed;
    return Parts.Source.StepFlag(step) ? StepMark::Held : StepMark::None;
}

bool StepList::BeingEdited(int row) const {
    return Around.Lock.Locked() && Around.Lock.EditedRow().value_or(Selected - Top) == row;
}

QString StepList::HintFor(const StepField& kind, int row) const {
    if (!Parts.Source.RatingsKnown())
        return QStringLiteral("전원 장치의 정격을 모릅니다. 설정 > ZPS설정에서 먼저 읽으십시오.");
    const auto index = static_cast<std::size_t>(row);
    const bool usable = (Parts.Controls.*kind.Fields).at(index)->isEnabled();
    if (!usable && StepOf(row) != Selected && Parts.Controls.txPSTEP.at(index)->isEnabled())
        return QStringLiteral("단계 번호를 눌러 선택하십시오");
    return RangeText(kind, Parts.Source);
}

// Shows by which button the row of `barred` gets usable.
void StepList::Point(const QWidget& barred) {
    for (std::size_t row = 0; row < RowCount; ++row) {
        const bool inRow =
            std::any_of(StepFields().begin(), StepFields().end(), [&](const StepField& kind) {
                return (Parts.Controls.*kind.Fields).at(row) == &barred;
            });
        StepButton& button = *Parts.Controls.txPSTEP.at(row);
        if (inRow && StepOf(static_cast<int>(row)) != Selected && button.isEnabled())
            button.Flash();
    }
}

void StepList::Select(int step) {
    Selected = step;
    Highlight(step);
    Told();
}

void StepList::Highlight(int step) {
    Highlighted = step;
    Repaint();
}

void StepList::Repaint() {
    Parts.Source.PaintStepRows(Highlighted);
}

void StepList::ShowSteps(int top) {
    Top = top;
    for (int row = 0; row < RowCount; ++row) {
        const QString number = QString::fromStdString(FormatStep(top + row));
        QPushButton& button = *Parts.Controls.txPSTEP.at(static_cast<std::size_t>(row));
        button.setText(number);
        button.setAccessibleName(QStringLiteral("단계 %1").arg(number));
    }
    ShowStepRange(Parts.Controls, top);
    FillFields();
}

void StepList::FillFields() {
    for (int row = 0; row < RowCount; ++row) {
        for (const StepField& kind : StepFields()) {
            EntryField& field = *(Parts.Controls.*kind.Fields).at(static_cast<std::size_t>(row));
            field.Write(QString::fromStdString(Parts.Source.Text(kind.Value, StepOf(row))));
            const QString name = SpokenName(kind.Fields, StepOf(row));
            if (name != field.accessibleName()) field.setAccessibleName(name);
        }
    }
}

}  // namespace zps
