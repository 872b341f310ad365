// A window that has the serial port while it is open, above the disabled main window.
#pragma once

#include "controls/handlers.h"
#include "power/power.h"
#include "serial/port.h"
#include "source/source.h"

#include <QWidget>

#include <memory>
#include <optional>

namespace zps {

class PortWindow : public QWidget {
    Q_OBJECT

  public:
    // Opens the port and fills the window. A port that can't be opened is reported once the window
    // shows.
    virtual void Form_Load() = 0;

    // Whether a handler is still at work, be it in a wait. The window must not be destroyed then.
    bool Busy() const { return Events.Busy(); }

  Q_SIGNALS:
    // The main window has the port again.
    void Closed();

  protected:
    // `power` has handed the port over. It must outlive this window.
    PortWindow(SOURCE& source, POWER& power, const Surroundings& around);

    // Opens the port under `number`, closing it first if need be. Null if it is open now.
    std::optional<serial::PortError> OpenPort(std::int16_t number);
    // Shows the error once the present event is over.
    void ReportLater(const serial::PortError& error);

    // Nothing is sent any more: the window closes.
    virtual void EndExchange() = 0;
    // The main window has the port back, or failed to open it.
    virtual void PortReturned(bool open) = 0;

    void closeEvent(QCloseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;

    SOURCE& Source;
    POWER& Power;
    Handlers Events;
    std::unique_ptr<serial::Port> comPOWER;

  private:
    void Form_Unload();
};

// Has screen readers announce every PortWindow as a dialog. Once in a program.
void SpeakPortWindows();

}  // namespace zps
