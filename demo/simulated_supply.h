// The supply that stands in the place of the machine's serial devices: 150 V, 10 A, address 1,
// COM1.
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

    SimulatedSupply() : SimulatedSupply(std::make_unique<simulator::MemoryEnd>("모의 전원 장치")) {}

    simulator::Line& Line() { return Supplies; }

    std::string PathOf(int number) const override;
    std::error_code RefusalOf(const std::string& path) const override;
    std::unique_ptr<serial::OpenDevice> Open(const std::string& path, Received received) override;

  private:
    explicit SimulatedSupply(std::unique_ptr<simulator::MemoryEnd> end);

    simulator::MemoryEnd& End;  // the line's
    simulator::Line Supplies;
};

}  // namespace zps::demo
