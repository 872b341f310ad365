// SET_MANUAL, the settings window: port, address and model, and the link check.
#pragma once

#include "power/port_window.h"
#include "set_manual/deliberate_choice.h"
#include "set_manual/probe_chain.h"
#include "set_manual/result_look.h"
#include "set_manual/set_manual_controls.h"

#include <QTimer>

namespace zps {

class SET_MANUAL : public PortWindow {
    Q_OBJECT

  public:
    SET_MANUAL(SOURCE& source, POWER& power, const Surroundings& around);

    // Shows the present settings, and starts the link check if the ratings of the chosen address
    // are not known.
    void Form_Load() override;

  protected:
    void EndExchange() override;
    void PortReturned(bool open) override;

  private:
    void ConnectControls();
    void optPORT_Click(int number);
    void cmbADDR_Click();
    void cmbMODEL_Click();
    void cmbMODEL_Change();
    void BeginChoice();

    void TakeRatings(double volts, double amps);
    void IdentifyModel(double watts);
    void ResetStepTable();
    void ShowResult(Reply result, CheckStage asked);
    void ShowOnBoth(const ResultLook& look);
    void ShowProgress();
    void ShowDevices();

    serial::PortMaker& PortsOfMachine;
    SetManualControls Controls;
    DeliberateChoice Choices;
    ProbeChain Chain;
    std::int16_t FormPort = 0;
    bool CutShort = false;  // a check without any answer was ended by the closing
    QTimer DeviceWatch;     // adapters come and go while the window is open
};

}  // namespace zps
