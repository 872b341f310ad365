// The five switch buttons.
#pragma once

#include "power/log/measurement_log.h"
#include "power/panel/power_parts.h"
#include "power/steps/edit_lock.h"
#include "power/steps/entries.h"

#include <functional>

namespace zps {

// What a switch that only sends its letter is made of.
struct PlainSwitch {
    char Letter;
    bool PowerState::*On;
    QLabel* PowerControls::*Label;
    Lamp* PowerControls::*Light;
    Colour Active;
    Colour Idle;
};

class Switches {
  public:
    Switches(PowerParts& parts, EditLock& lock, Entries& fields, MeasurementLog& log);

    // The supply has its functions switched off: auto mode, protection and sensing show it.
    void ResetFunctions();

  private:
    void Connect(QPushButton& button, std::function<void()> click);
    void cmdOUTPUT_Click();
    void cmdPREMOTE_Click();
    void Toggle(const PlainSwitch& plain);
    void Show(const PlainSwitch& plain, bool on);
    // False if a fault came up before it was on.
    bool SwitchOutputOn();
    void SwitchOutputOff();
    void WaitForReplyInProgress();
    bool StepStartUnderWay() const;
    void CallOffStepStart();
    void GoLocal();
    void GoRemote();

    PowerParts& Parts;
    EditLock& Lock;
    Entries& Fields;
    MeasurementLog& Log;
};

}  // namespace zps
