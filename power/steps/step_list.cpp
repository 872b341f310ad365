#include "power/steps/step_list.h"

#include "controls/colours.h"
#include "power/panel/step_list_layout.h"
#include "power/steps/step_fields.h"
#include "source/numbers.h"

#include <QApplication>
#include <QPalette>

#include <array>

namespace zps {

namespace {

struct RowLook {
    QColor Button;
    QColor Fields;
    QString Spoken;  // the colours in a word
};

RowLook LookOf(RowState state) {
    switch (state) {
        case RowState::Selected:
            return {ToQColor(Colour::PaleOrange), ToQColor(Colour::PaleOrange),
                    QStringLiteral("선택됨")};
        case RowState::Held:
            return {ToQColor(Colour::LightCyan), ToQColor(Colour::LightCyan),
                    QStringLiteral("송신됨")};
        case RowState::Plain:
            break;
    }
    const QPalette system = QApplication::palette();
    return {system.color(QPalette::Button), system.color(QPalette::HighlightedText),
            QStringLiteral("미송신")};
}

}  // namespace

void StepList::PaintRow(int row, RowState state) {
    const auto index = static_cast<std::size_t>(row);
    const RowLook look = LookOf(state);
    QPushButton& button = *Parts.Controls.txPSTEP.at(index);
    PaintBackground(button, look.Button);
    button.setAccessibleDescription(look.Spoken);
    for (const StepField& kind : StepFields()) {
        EntryField& field = *(Parts.Controls.*kind.Fields).at(index);
        PaintBackground(field, look.Fields);
        const auto place = static_cast<std::size_t>(kind.Value);
        field.MarkRefused(Held.Refused(StepOf(row)).test(place));
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
    FillFields();
}

void StepList::FillFields() {
    for (int row = 0; row < RowCount; ++row) {
        for (const StepField& kind : StepFields()) {
            EntryField& field = *(Parts.Controls.*kind.Fields).at(static_cast<std::size_t>(row));
            field.Write(QString::fromStdString(Parts.Source.Text(kind.Value, StepOf(row))));
            field.setAccessibleName(SpokenName(kind.Fields, StepOf(row)));
        }
    }
}

}  // namespace zps
