// A line within one process: the panel's end is called, not opened.
#pragma once

#include "simulator/line_end.h"

#include <condition_variable>
#include <functional>
#include <mutex>

namespace zps::simulator {

class MemoryEnd final : public LineEnd {
  public:
    // `name` is that of the device, each time that it is plugged in.
    explicit MemoryEnd(std::string name) : DeviceName(std::move(name)) {}

    // The panel's end; calls on any thread. One panel at a time: false while another is connected,
    // or the line is unplugged. `received` is called on the line's thread, until Disconnect has
    // returned.
    bool Connect(std::function<void(ByteView)> received);
    void Disconnect();
    // False once the line has been unplugged since Connect.
    bool IsConnected() const;
    void Send(ByteView bytes);

    void Open() override;
    void Close() override;
    std::string Name() const override;
    void Wait(Time until) override;
    void Wake() override;
    std::size_t Read(std::span<std::uint8_t> room) override;
    void Write(ByteView bytes) override;

  private:
    const std::string DeviceName;
    mutable std::mutex Guard;  // of everything below
    std::condition_variable Woken;
    bool IsWoken = false;
    bool IsOpen = false;
    std::function<void(ByteView)> Received;  // empty while nobody is connected
    Bytes Sent;
};

}  // namespace zps::simulator
