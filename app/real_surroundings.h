// What the panel gets from a real machine.
#pragma once

#include "controls/message_boxes.h"
#include "platform/pointer_confinement.h"
#include "platform/qt_event_loop.h"
#include "platform/web_browser.h"
#include "power/power.h"
#include "serial/asio_port.h"

#include <memory>

namespace zps {

// Make it on the window thread, after the application object; it outlives the Program that it is
// handed to; `devices` outlive it.
struct RealSurroundings {
    explicit RealSurroundings(serial::Devices& devices = serial::MachineDevices())
        : Ports(Loop, devices) {}

    platform::QtEventLoop Loop;
    serial::AsioPortMaker Ports;
    ToolkitMessageBoxes Boxes;
    std::unique_ptr<platform::PointerConfinement> Pointer = platform::MakePointerConfinement();
    platform::SystemWebBrowser Browser;

    Surroundings All() { return {Ports, Loop, Boxes, *Pointer, Browser}; }
};

}  // namespace zps
