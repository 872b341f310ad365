// Supplies that stand in the place of the machine's serial devices, at COM1.
#pragma once

#include "serial/devices.h"
#include "simulator/line.h"
#include "simulator/memory_end.h"

namespace zps::demo {

// Has a thread of its own, which answers as fast as a line at 9600 baud would. Its device is lost
// while the line is unplugged.
class SimulatedSupply final : public serial::Devices {
  public:
    static constexpr int Address = 1;

    // Throws as simulator::Line. One supply of 150 V and 10 A, if nothing else is said.
    explicit SimulatedSupply(const std::vector<simulator::SupplyOptions>& supplies = {
                                 {.Address = Address}});

    simulator::Line& Line() { return Supplies; }

    std::string PathOf(int number) const override;
    std::error_code RefusalOf(const std::string& path) const override;
    std::unique_ptr<serial::OpenDevice> Open(const std::string& path, Received received) override;

  private:
    SimulatedSupply(std::unique_ptr<simulator::MemoryEnd> end,
                    const std::vector<simulator::SupplyOptions>& supplies);

    simulator::MemoryEnd& End;  // the line's
    simulator::Line Supplies;
};

}  // namespace zps::demo
