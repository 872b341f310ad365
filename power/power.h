// POWER, the main window.
#pragma once

#include "controls/message_boxes.h"
#include "platform/pointer_confinement.h"
#include "platform/web_browser.h"
#include "power/link/history.h"
#include "serial/port.h"
#include "source/source.h"

#include <QMainWindow>

#include <memory>
#include <optional>

namespace zps {

// What the windows get from the program around them.
struct Surroundings {
    serial::PortMaker& Ports;
    serial::EventLoop& Loop;
    MessageBoxes& Boxes;
    platform::PointerConfinement& Pointer;
    platform::WebBrowser& Browser;
};

class POWER : public QMainWindow {
    Q_OBJECT

  public:
    POWER(SOURCE& source, const Surroundings& around);
    ~POWER() override;

    // Opens the port and sets everything to its start. Throws serial::PortError.
    void Form_Load();

    // Gives the port up to another window and disables this one. No entry is open.
    void HandOver();
    // Takes the port back, shows and enables the window in any case. The error if the port could
    // not be opened; ReportPort shows it.
    std::optional<serial::PortError> TakeBack();
    void ReportPort(const serial::PortError& error);

    // Shows or hides what can be used only with an identified supply, and starts its top step.
    // `checked` tells whether the check of the supply has come to an end.
    void ShowPanels(bool identified, bool checked = true);

    void ShowModel();
    void ShowRatings(const QString& ratings);  // while they are known
    // Another address, port or device has been chosen: the ratings may be unknown now, or known
    // again.
    void ConnectionChanged();
    // The step table has been reset for a supply that is under remote control.
    void StepTableReset();
    // The supply has acknowledged that all its functions are off.
    void FunctionsReset();

    // What has happened; the windows that have the port meanwhile note here too.
    History& Happened();
    // How well the supply answers, in a line.
    QString LinkText() const;

  Q_SIGNALS:
    void SettingsWanted();
    void TestWanted();
    void LineRecordWanted();
    void HistoryWanted();
    void AboutWanted();
    void Closed();

  protected:
    void closeEvent(QCloseEvent* event) override;
    bool event(QEvent* event) override;

  private:
    void ConnectMenus();
    void OpenOther(void (POWER::*wanted)());
    void mnuData_Clear_Click();
    void lblORV_URL_DblClick(platform::WebBrowser& browser);
    void comPOWER_Event();

    struct Inside;
    std::unique_ptr<Inside> Self;
};

}  // namespace zps
