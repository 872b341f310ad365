#include "demo/simulated_supply.h"
#include "serial/asio_port.h"
#include "tests/support/simulated_parts.h"

namespace zps::tests {

struct SimulatedParts::Inside {
    Inside(serial::EventLoop& loop, const std::vector<simulator::SupplyOptions>& supplies)
        : Devices(supplies), Ports(loop, Devices) {}
    demo::SimulatedSupply Devices;
    serial::AsioPortMaker Ports;
};

SimulatedParts::SimulatedParts(const std::vector<simulator::SupplyOptions>& supplies)
    : Self(std::make_unique<Inside>(Loop, supplies)) {}
SimulatedParts::~SimulatedParts() = default;

simulator::Line& SimulatedParts::Line() {
    return Self->Devices.Line();
}
serial::PortMaker& SimulatedParts::Ports() {
    return Self->Ports;
}

}  // namespace zps::tests
