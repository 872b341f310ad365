// What the operator's judge knows of the panel: what it shows, and what it believes.
#pragma once

#include "tests/support/panel.h"

namespace zps::tests {

// All use of what the windows share is in here.
class PanelView {
  public:
    explicit PanelView(SimulatedPanel& panel) : Panel(panel) {}

    // Whom the panel talks to.
    int Port() const;
    int Address() const;
    // The values of a step as its row shows them, and whether the supply is said to hold them.
    struct Step {
        bool Held;
        double Volts;
        double Amps;
        double OvpVolts;
        double Seconds;
        double SlopeSeconds;
    };
    Step StepOf(int number) const;

    // Whether neither the settings nor the test window is open.
    bool MainHasPort() const { return !Panel.Run.Settings() && !Panel.Run.Test(); }
    QString Text(const char* name) const {
        return Panel.Get<QWidget>(name).property("text").toString();
    }
    bool ShownOn() const { return Text("Output_ONOFF") == QStringLiteral("ON"); }
    // Visible and enabled, so that a person can press it.
    bool Usable(const char* name) const;

  private:
    SimulatedPanel& Panel;
};

}  // namespace zps::tests
