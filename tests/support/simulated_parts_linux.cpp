#include "serial/asio_port.h"
#include "tests/support/runtime_folder.h"
#include "tests/support/simulated_parts.h"

namespace zps::tests {

struct SimulatedParts::Inside {
    Inside(serial::EventLoop& loop, const std::vector<simulator::SupplyOptions>& supplies)
        : Line(supplies), Ports(loop) {}
    RuntimeFolder Folder;
    simulator::Line Line;
    simulator::PortLink Link{1, Line.DeviceName()};
    serial::AsioPortMaker Ports;
};

SimulatedParts::SimulatedParts(const std::vector<simulator::SupplyOptions>& supplies)
    : Self(std::make_unique<Inside>(Loop, supplies)) {}
SimulatedParts::~SimulatedParts() = default;

simulator::Line& SimulatedParts::Line() {
    return Self->Line;
}
serial::PortMaker& SimulatedParts::Ports() {
    return Self->Ports;
}
simulator::PortLink& SimulatedParts::Link() {
    return Self->Link;
}

}  // namespace zps::tests
