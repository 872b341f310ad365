// What the operator's judge knows of the panel. All use of what the windows share is in here.
#pragma once

#include "controls/lamp.h"
#include "source/numbers.h"
#include "tests/support/panel.h"

namespace zps::tests {

struct PanelView {
    SimulatedPanel& Panel;

    // Whom the panel talks to.
    int Port() const { return Panel.Source().CommPort; }
    int Address() const { return Panel.Source().PowerAddr; }
    // Whether a step is marked as held, and its values as its row shows them: voltage, current,
    // over-voltage level, time and slope.
    bool Held(std::size_t step) const { return Panel.Source().StepFlag(static_cast<int>(step)); }
    std::array<double, 5> Values(std::size_t step) const {
        const auto shown = [&](StepValue value) {
            return LeadingNumber(Panel.Source().Text(value, static_cast<int>(step)));
        };
        return {shown(StepValue::Volt), shown(StepValue::Curr), shown(StepValue::Ovp),
                shown(StepValue::Time), shown(StepValue::Slope)};
    }

    QWidget* PortWindow() const { return Panel.Run.Settings() ? Panel.Run.Settings() : Test(); }
    bool MainHasPort() const { return PortWindow() == nullptr; }
    // In the main window.
    std::string Text(const char* name) const {
        return Panel.Get<QWidget>(name).property("text").toString().toStdString();
    }
    bool ShownOn() const { return Text("Output_ONOFF") == "ON"; }
    bool Usable(const char* name) const {
        const auto& control = Panel.Get<QWidget>(name);
        return control.isVisible() && control.isEnabled();
    }
    bool MenuUsable() const { return Panel.Get<QAction>("mnuSET_MANU").isEnabled(); }
    bool Lit(const char* lamp, Colour colour) const {
        return Panel.Get<Lamp>(lamp).Lit() == colour;
    }

  private:
    QWidget* Test() const;
};

}  // namespace zps::tests
