#include "power/panel/read_outs.h"

namespace zps {

ReadOuts::ReadOuts(PowerControls& controls, const SOURCE& source)
    : Controls(controls), Source(source) {
    Refresh();
}

void ReadOuts::ShowStep(int step) {
    Volt = {Source.StepVolt(step)};
    Curr = {Source.StepCurr(step)};
    Refresh();
}

void ReadOuts::ShowValue(StepValue value, const std::string& text) {
    if (value == StepValue::Volt) Volt = {text};
    if (value == StepValue::Curr) Curr = {text};
    Refresh();
}

void ReadOuts::ShowReading(float volts, float amps) {
    Volt = {Source.FormatVoltFine(volts), NumberFrom::Reading, volts};
    Curr = {Source.FormatCurrFine(amps), NumberFrom::Reading, amps};
    Refresh();
}

std::optional<double> ReadOuts::Watts() const {
    const bool read = Volt.From == NumberFrom::Reading && Curr.From == NumberFrom::Reading;
    return read ? std::optional(Volt.Value * Curr.Value) : std::nullopt;
}

void ReadOuts::Refresh() {
    const auto shown = [this](const Number& number) {
        return Source.RatingsKnown() ? QString::fromStdString(number.Text) : QStringLiteral("----");
    };
    Controls.txtVOLT->ShowValue(shown(Volt));
    Controls.txtCURR->ShowValue(shown(Curr));
    Told();
}

}  // namespace zps
