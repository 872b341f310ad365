// The ports of the panel: numbers, events, and coming back after a loss, on devices.
#pragma once

#include "serial/devices.h"
#include "serial/port.h"

#include <memory>
#include <string>

namespace zps::serial {

// Ports on the devices given. `loop` and `devices` must outlive every port made here.
class AsioPortMaker : public PortMaker {
  public:
    explicit AsioPortMaker(EventLoop& loop, serial::Devices& devices = MachineDevices());
    std::unique_ptr<Port> MakePort() override;
    std::string DeviceOf(int number) const override;

  private:
    EventLoop& Loop;
    serial::Devices& Devices;
};

}  // namespace zps::serial
