// The program: its windows, and how they follow one another.
#pragma once

#include "power/power.h"
#include "record/line_trace.h"
#include "record/traced_ports.h"
#include "set_manual/set_manual.h"
#include "source/source.h"

#include <memory>
#include <vector>

namespace zps {

class frmAbout;
class RECORD;
class TEST;

class Program : public QObject {
  public:
    explicit Program(const Surroundings& around);
    ~Program() override;

    // Opens the main window and, above it, the settings window, which looks for the supply. Throws
    // serial::PortError where the main window's port can't be opened.
    void StartUp();

    SOURCE& Shared() { return Source; }
    POWER& Main() { return *Power; }
    // The settings or test window while it is open, else null.
    SET_MANUAL* Settings();
    TEST* Test();
    // The record while it has been opened, else null.
    RECORD* Record() { return RecordWindow.get(); }
    // What has gone over the line since the program began.
    const LineTrace& Trace() const { return Line; }

  private:
    // Shows a window that takes the port, above the main window; nothing while one is open.
    template <class Window>
    void ShowPortWindow();
    void PortWindowClosed();
    void ShowAbout();
    RECORD& ShowRecord();
    Scales ScalesAt(int address) const;
    // Destroys closed windows as soon as none of their handlers is at work.
    void DropClosed();

    SOURCE Source;
    LineTrace Line;
    TracedPorts Ports;
    Surroundings Around;  // with those ports
    std::unique_ptr<POWER> Power;
    std::unique_ptr<PortWindow> OpenWindow;
    std::vector<std::unique_ptr<PortWindow>> ClosedWindows;
    std::unique_ptr<frmAbout> About;
    std::unique_ptr<RECORD> RecordWindow;
};

// What every window of the program looks like: style, type face, language, name and version.
void DressApplication();

}  // namespace zps
