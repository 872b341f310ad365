#include "serial/asio_port.h"

#include "serial/asio_device.h"
#include "serial/device.h"
#include "serial/inbox.h"
#include "serial/receive_event.h"

#include <filesystem>
#include <system_error>
#include <thread>
#include <utility>

namespace zps::serial {
namespace {

using std::chrono::milliseconds;

// From one opening to the closing. A wait keeps its own hold on it: the port may be closed, opened
// again or destroyed by one of the events that the wait runs.
struct Session {
    explicit Session(int number) : Number(number) {}

    const int Number;
    std::string Path;  // the device that was opened
    bool Ended = false;
    Inbox Arrived;
    std::unique_ptr<OpenDevice> Device;  // absent while it is lost and can't be opened again
};

class AsioPort final : public Port {
  public:
    AsioPort(EventLoop& loop, serial::Devices& devices)
        : Loop(loop), Devices(devices), Event(loop, [this] { return InBufferCount() > 0; }) {}
    ~AsioPort() override { SetPortOpen(false); }

    bool PortOpen() const override { return Present != nullptr; }
    std::string Device() const override { return Present ? Present->Path : std::string(); }
    void SetPortOpen(bool open) override;
    std::size_t InBufferCount() const override { return Present ? Present->Arrived.Count() : 0; }
    std::vector<std::uint8_t> DiscardInput() override {
        if (InBufferCount() == 0) return {};
        Event.BytesDiscarded();
        return Present->Arrived.Clear();
    }
    std::uint8_t Input() override;
    void Output(std::span<const std::uint8_t> block) override;
    bool WaitForInput(std::size_t count, milliseconds limit, WaitMode mode) override;
    void Pause(milliseconds limit, WaitMode mode) override;
    void OnReceive(EventKind kind, std::function<void()> handler) override {
        Event.SetHandler(kind, std::move(handler));
    }

  private:
    void OpenDeviceOf(Session& session);
    bool OpenDeviceAgain(Session& session);

    EventLoop& Loop;
    serial::Devices& Devices;
    ReceiveEvent Event;
    std::shared_ptr<Session> Present;  // absent while the port is closed
};

void AsioPort::SetPortOpen(bool open) {
    if (open == PortOpen()) return;
    if (!open) {
        const auto session = std::exchange(Present, nullptr);
        session->Ended = true;
        Event.Stop();
        session->Device.reset();
        return;
    }
    auto session = std::make_shared<Session>(CommPort());
    try {
        OpenDeviceOf(*session);
    } catch (const std::system_error& error) {
        throw PortError(CommPort(), error.code());
    }
    Present = std::move(session);
    Event.Start();
}

// The session outlives its device, and this object the session's device.
void AsioPort::OpenDeviceOf(Session& session) {
    // Another device that has moved up in the meantime may lead to another supply.
    const bool again = !session.Path.empty();
    const auto path = again ? session.Path : Devices.PathOf(session.Number);
    if (path.empty()) throw std::system_error(std::make_error_code(std::errc::no_such_device));
    if (const auto refusal = Devices.RefusalOf(path)) throw std::system_error(refusal);
    session.Device =
        Devices.Open(path, [this, &arrived = session.Arrived](std::span<const std::uint8_t> bytes) {
            arrived.Put(bytes);
            Event.BytesArrived();
        });
    session.Path = path;
}

bool AsioPort::OpenDeviceAgain(Session& session) {
    session.Device.reset();
    try {
        OpenDeviceOf(session);
        return true;
    } catch (const std::system_error&) {
        return false;  // still away: the line stays silent
    }
}

std::uint8_t AsioPort::Input() {
    if (!Present) throw std::logic_error("no byte to read: the port is closed");
    return Present->Arrived.Take();
}

void AsioPort::Output(std::span<const std::uint8_t> block) {
    if (!Present) throw PortError(CommPort(), std::make_error_code(std::errc::bad_file_descriptor));
    auto& session = *Present;
    const bool here = session.Device && !session.Device->IsLost();
    if (here || OpenDeviceAgain(session)) session.Device->Write(block);
    // Also on a lost line: whoever asked for it gets a verdict on the block, "no reply".
    Event.BlockGone();
}

bool AsioPort::WaitForInput(std::size_t count, milliseconds limit, WaitMode mode) {
    const auto session = Present;
    if (!session) return false;
    const auto deadline = Clock::now() + limit;
    if (mode == WaitMode::HoldEvents) return session->Arrived.WaitFor(count, deadline);
    const auto arrived = [&session, count] { return session->Arrived.Count() >= count; };
    Loop.RunUntil([&] { return session->Ended || arrived(); }, deadline);
    return !session->Ended && arrived();
}

void AsioPort::Pause(milliseconds limit, WaitMode mode) {
    const auto session = Present;
    if (!session) return;
    const auto deadline = Clock::now() + limit;
    if (mode == WaitMode::HoldEvents)
        std::this_thread::sleep_until(deadline);
    else
        Loop.RunUntil([&session] { return session->Ended; }, deadline);
}

}  // namespace

std::error_code make_error_code(PortFault fault) {
    static const class : public std::error_category {
        const char* name() const noexcept override { return "serial port"; }
        std::string message(int) const override { return "link folder not private"; }
    } category;
    return {static_cast<int>(fault), category};
}

Devices& MachineDevices() {
    static class : public Devices {
        std::string PathOf(int number) const override { return DevicePath(number); }
        std::error_code RefusalOf(const std::string& path) const override { return Refusal(path); }
        std::unique_ptr<OpenDevice> Open(const std::string& path, Received received) override {
            return std::make_unique<AsioDevice>(path, std::move(received));
        }
    } devices;
    return devices;
}

AsioPortMaker::AsioPortMaker(EventLoop& loop, serial::Devices& devices)
    : Loop(loop), Devices(devices) {}

std::unique_ptr<Port> AsioPortMaker::MakePort() {
    return std::make_unique<AsioPort>(Loop, Devices);
}

std::string AsioPortMaker::DeviceOf(int number) const {
    const auto path = Devices.PathOf(number);
    if (path.empty()) return {};
    if (const auto refusal = Devices.RefusalOf(path)) throw PortError(number, refusal);
    std::error_code none;
    const auto target = std::filesystem::read_symlink(path, none);
    return none ? path : target.string();
}

}  // namespace zps::serial
