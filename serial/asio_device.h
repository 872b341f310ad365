// One open serial device with a thread of its own, which does all that is done on the device: it
// reads, writes, lets written bytes leave and closes. What a port is beyond that (numbers, events,
// coming back) is asio_port.cpp's affair.
//
// Loss: any error in reading or writing, and a write that the device doesn't take in time. The
// device is closed at once then: a pulled adapter gets its name back only when nobody holds it any
// more.
//
#pragma once

#include "serial/devices.h"

#include <chrono>
#include <cstdint>
#include <memory>
#include <span>
#include <string>

namespace zps::serial {

class AsioDevice final : public OpenDevice {
  public:
    // The longest that a write or the wait for written bytes at closing takes.
    static constexpr std::chrono::milliseconds LongestWrite{200};

    // Opens and claims the device at 9600 baud, 8N1, raw. Throws std::system_error with a
    // code that compares with std::errc. `received` is called with what has been read, on the
    // device's thread; the device waits meanwhile.
    AsioDevice(const std::string& path, Devices::Received received);
    // Lets written bytes leave, for LongestWrite at most, closes, and ends the thread.
    ~AsioDevice() override;

    bool IsLost() const override;
    // Returns when the system has taken the block or the device is lost, after LongestWrite at
    // most.
    void Write(std::span<const std::uint8_t> block) override;

  private:
    struct Inside;
    std::unique_ptr<Inside> Self;
};

}  // namespace zps::serial
