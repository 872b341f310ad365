// Ports that keep a trace of what goes over them.
#pragma once

#include "record/line_trace.h"
#include "serial/port.h"

#include <functional>
#include <memory>
#include <string>

namespace zps {

// Hands out the ports of another maker, each in a wrapping that notes in a trace what is sent, what
// is read or thrown away, and when it is opened and closed. Whoever uses them need not know.
class TracedPorts final : public serial::PortMaker {
  public:
    // `scalesAt` tells those of the supply at an address. All of it outlives the ports.
    TracedPorts(serial::PortMaker& ports, LineTrace& trace,
                std::function<Scales(int address)> scalesAt);
    std::unique_ptr<serial::Port> MakePort() override;
    std::string DeviceOf(int number) const override { return Ports.DeviceOf(number); }

  private:
    serial::PortMaker& Ports;
    LineTrace& Trace;
    const std::function<Scales(int)> ScalesAt;
};

}  // namespace zps
