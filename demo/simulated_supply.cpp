#include "demo/simulated_supply.h"

#include <utility>

namespace zps::demo {

namespace {

constexpr int Port = 1;

class Connection final : public serial::OpenDevice {
  public:
    Connection(simulator::MemoryEnd& end, serial::Devices::Received received) : End(end) {
        if (!End.Connect(std::move(received)))
            throw std::system_error(std::make_error_code(std::errc::device_or_resource_busy));
    }
    ~Connection() override { End.Disconnect(); }

    bool IsLost() const override { return !End.IsConnected(); }
    void Write(std::span<const std::uint8_t> block) override { End.Send(block); }

  private:
    simulator::MemoryEnd& End;
};

}  // namespace

SimulatedSupply::SimulatedSupply(const std::vector<simulator::SupplyOptions>& supplies)
    : SimulatedSupply(std::make_unique<simulator::MemoryEnd>("모의 전원 장치"), supplies) {}

SimulatedSupply::SimulatedSupply(std::unique_ptr<simulator::MemoryEnd> end,
                                 const std::vector<simulator::SupplyOptions>& supplies)
    : End(*end), Supplies(std::move(end), supplies) {}

std::string SimulatedSupply::PathOf(int number) const {
    return number == Port ? Supplies.DeviceName() : std::string();
}

std::error_code SimulatedSupply::RefusalOf(const std::string& /*path*/) const {
    return Supplies.DeviceName().empty() ? std::make_error_code(std::errc::no_such_device)
                                         : std::error_code();
}

std::unique_ptr<serial::OpenDevice> SimulatedSupply::Open(const std::string& /*path*/,
                                                          Received received) {
    return std::make_unique<Connection>(End, std::move(received));
}

}  // namespace zps::demo
