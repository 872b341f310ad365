#include "power/panel/read_outs.h"

namespace zps {

ReadOuts::ReadOuts(PowerControls& controls, const SOURCE& source)
    : Controls(controls), Source(source) {
    // Assistive tools can write even into what can't be edited.
    for (QLineEdit* field : {controls.txtVOLT, controls.txtCURR})
        QObject::connect(field, &QLineEdit::textChanged, field, [this] { Refresh(); });
    Refresh();
}

void ReadOuts::ShowStep(int step) {
    Show(Source.StepVolt(step), Source.StepCurr(step));
}

void ReadOuts::ShowValue(StepValue value, const std::string& text) {
    if (value == StepValue::Volt) Show(text, Texts[1]);
    if (value == StepValue::Curr) Show(Texts[0], text);
}

void ReadOuts::ShowReading(float volts, float amps) {
    Show(Source.FormatVoltFine(volts), Source.FormatCurrFine(amps));
}

void ReadOuts::Show(const std::string& volts, const std::string& amps) {
    Texts = {volts, amps};
    Refresh();
}

void ReadOuts::Refresh() {
    const auto shown = [this](const std::string& text) {
        return Source.RatingsKnown() ? QString::fromStdString(text) : QStringLiteral("----");
    };
    Controls.txtVOLT->setText(shown(Texts[0]));
    Controls.txtCURR->setText(shown(Texts[1]));
}

}  // namespace zps
