// SET_MANUAL, the settings window: port, address and model, and the link check.
#pragma once

#include "controls/handlers.h"
#include "power/power.h"
#include "set_manual/probe_chain.h"
#include "set_manual/set_manual_controls.h"

#include <QWidget>

namespace zps {

class SET_MANUAL : public QWidget {
    Q_OBJECT

  public:
    // `power` has handed the port over. It must outlive this window.
    SET_MANUAL(SOURCE& source, POWER& power, const Surroundings& around);

    // Opens the port, shows the present settings, and starts the link check if the ratings of the
    // chosen address are not known. A port that can't be opened is reported.
    void Form_Load();

    // Whether a handler is still at work, be it in a wait. The window must not be destroyed then.
    bool Busy() const { return Events.Busy(); }

  Q_SIGNALS:
    void Closed();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void ConnectControls();
    void Form_Unload();
    void optPORT_Click(int number);
    void cmbADDR_Click();
    void cmbMODEL_Click();
    void cmbMODEL_Change();
    void POWERVoltage_Change();
    void POWERCurrent_Change();

    // Null if the port is open now.
    std::optional<serial::PortError> OpenPort(std::int16_t number);
    void TakeRatings(double volts, double amps);
    void IdentifyModel();
    void ResetStepTable();
    void ShowRatings();
    void ShowResult(Reply result, std::int16_t asked);

    SOURCE& Source;
    POWER& Power;
    serial::PortMaker& PortsOfMachine;
    Handlers Events;
    SetManualControls Controls;
    std::unique_ptr<serial::Port> comPOWER;
    ProbeChain Chain;
    std::int16_t FormPort = 0;
};

}  // namespace zps
