#include "power/steps/step_list.h"

#include "controls/colours.h"
#include "power/panel/step_list_layout.h"
#include "source/numbers.h"

#include <QApplication>
#include <QPalette>

#include <array>

namespace zps {

namespace {

struct FieldTexts {
    std::array<EntryField*, RowCount> PowerControls::*Fields;
    std::array<std::string, StepCount> StepTable::*Texts;
};
constexpr std::array Columns{
    FieldTexts{&PowerControls::txPVOLT, &StepTable::StepVolt},
    FieldTexts{&PowerControls::txPCURR, &StepTable::StepCurr},
    FieldTexts{&PowerControls::txPTIME, &StepTable::StepTime},
    FieldTexts{&PowerControls::txPSLOPE, &StepTable::StepSlope},
    FieldTexts{&PowerControls::txPOVP, &StepTable::StepOvp},
};

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
    for (const auto& column : Columns) {
        PaintBackground(*(Parts.Controls.*column.Fields).at(index), look.Fields);
    }
}

void StepList::ShowSteps(int top) {
    Top = top;
    for (int row = 0; row < RowCount; ++row) {
        const QString number = QString::fromStdString(FormatStep(top + row));
        QPushButton& button = *Parts.Controls.txPSTEP.at(static_cast<std::size_t>(row));
        button.setText(number);
        button.setAccessibleName(QStringLiteral("단계 %1").arg(number));
    }
    FillFields(top);
}

void StepList::FillFields(int first) {
    for (std::size_t row = 0; row < RowCount; ++row) {
        for (const auto& column : Columns) {
            EntryField& field = *(Parts.Controls.*column.Fields)[row];
            const auto& texts = Parts.Source.*column.Texts;
            WriteField(field, texts.at(static_cast<std::size_t>(first) + row));
            field.setAccessibleName(SpokenName(column.Fields, Top + static_cast<int>(row)));
        }
    }
    KeepOldTextOfFocus();
}

StepTexts StepList::RowTexts(int row) const {
    const auto text = [&](const auto& fields) {
        return fields.at(static_cast<std::size_t>(row))->text().toStdString();
    };
    const PowerControls& c = Parts.Controls;
    return {text(c.txPVOLT), text(c.txPCURR), text(c.txPTIME), text(c.txPSLOPE), text(c.txPOVP)};
}

void StepList::WriteField(EntryField& field, const std::string& text) {
    Parts.Source.OldText = text;
    field.setText(QString::fromStdString(text));
}

void StepList::KeepOldTextOfFocus() {
    for (const auto& column : Columns) {
        for (const EntryField* field : Parts.Controls.*column.Fields) {
            if (field->Entered()) Parts.Source.OldText = field->text().toStdString();
        }
    }
    for (const EntryField* field : {Parts.Controls.txtPAUTOSTEP, Parts.Controls.txtPAUTOCOUNT}) {
        if (field->Entered()) Parts.Source.OldText = field->text().toStdString();
    }
}

}  // namespace zps
