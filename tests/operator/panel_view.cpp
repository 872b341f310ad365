#include "tests/operator/panel_view.h"

#include "source/numbers.h"

namespace zps::tests {

int PanelView::Port() const {
    return Panel.Source().CommPort;
}

int PanelView::Address() const {
    return Panel.Source().PowerAddr;
}

PanelView::Step PanelView::StepOf(int number) const {
    const SOURCE& source = Panel.Source();
    const auto step = static_cast<std::size_t>(number);
    return {source.StepFlag.at(step),
            LeadingNumber(source.StepVolt.at(step)),
            LeadingNumber(source.StepCurr.at(step)),
            LeadingNumber(source.StepOvp.at(step)),
            LeadingNumber(source.StepTime.at(step)),
            LeadingNumber(source.StepSlope.at(step))};
}

bool PanelView::Usable(const char* name) const {
    const auto& control = Panel.Get<QWidget>(name);
    return control.isVisible() && control.isEnabled();
}

}  // namespace zps::tests
