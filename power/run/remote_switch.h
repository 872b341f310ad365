// The remote switch: who controls the supply.
#pragma once

#include "power/link/history.h"
#include "power/link/polling.h"
#include "power/panel/power_parts.h"
#include "power/run/output.h"
#include "power/run/step_start.h"
#include "power/steps/commands.h"

#include <functional>

namespace zps {

class RemoteSwitch {
  public:
    // `changed` is told after what may be used has changed.
    RemoteSwitch(PowerParts& parts, Commands& commands, Output& output, History& happened,
                 StepStart& start, Polling& polls, std::function<void()> changed);

    // The switch was last pressed to remote.
    bool On() const { return RemoteOn; }
    // A supply has been under remote control since the start, and it is now.
    bool Identified() const { return Known; }
    bool ControlsUsable() const { return Usable; }
    // The supply is under remote control (true) or local.
    void SetRemoteControls(bool on);

  private:
    void cmdPREMOTE_Click();
    void GoLocal();
    void GoRemote();

    PowerParts& Parts;
    Output& Out;
    History& Happened;
    StepStart& Start;
    Polling& Polls;
    std::function<void()> Changed;
    bool RemoteOn = false;
    bool Known = false;
    bool Usable = false;
};

}  // namespace zps
