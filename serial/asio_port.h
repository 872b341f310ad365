// The port of the real machine, on Linux and Windows.
#pragma once

#include "serial/port.h"

#include <memory>
#include <string>

namespace zps::serial {

// Ports on the machine's own serial devices (serial/device.h tells which number is which). `loop`
// must outlive every port made here.
class AsioPortMaker : public PortMaker {
  public:
    explicit AsioPortMaker(EventLoop& loop);
    std::unique_ptr<Port> MakePort() override;
    std::string DeviceOf(int number) const override;

  private:
    EventLoop& Loop;
};

}  // namespace zps::serial
