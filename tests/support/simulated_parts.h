// Simulated supplies for a panel in a test, at COM1: behind a pseudo-terminal where the system has
// them (simulated_parts_linux.cpp), else in memory (simulated_parts_windows.cpp).
#pragma once

#include "platform/qt_event_loop.h"
#include "serial/port.h"
#include "simulator/line.h"

#include <memory>
#include <vector>

namespace zps::tests {

class SimulatedParts {
  public:
    explicit SimulatedParts(const std::vector<simulator::SupplyOptions>& supplies);
    ~SimulatedParts();

    platform::QtEventLoop Loop;
    simulator::Line& Line();
    serial::PortMaker& Ports();
    simulator::PortLink& Link();  // of the pseudo-terminal

  private:
    struct Inside;
    std::unique_ptr<Inside> Self;
};

}  // namespace zps::tests
