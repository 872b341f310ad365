// The serial devices that ports open: those of the machine, or others in their place.
//
// Threading: one thread makes, uses and destroys an open device; `received` alone is called on a
// thread of the device.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <system_error>

namespace zps::serial {

// A device at 9600 baud, 8N1, open for this program alone until it is destroyed.
class OpenDevice {
  public:
    // Lets written bytes leave, for a bounded time.
    virtual ~OpenDevice() = default;
    OpenDevice() = default;
    OpenDevice(const OpenDevice&) = delete;
    OpenDevice& operator=(const OpenDevice&) = delete;

    // Stays so once it is true.
    virtual bool IsLost() const = 0;
    // Writes the block whole; returns when it has been taken or the device is lost, after 0.2 s at
    // most.
    virtual void Write(std::span<const std::uint8_t> block) = 0;
};

class Devices {
  public:
    // Called with what has been read; the device waits meanwhile.
    using Received = std::function<void(std::span<const std::uint8_t>)>;

    virtual ~Devices() = default;
    // The device that port `number` is now; empty if there is none. Throws nothing.
    virtual std::string PathOf(int number) const = 0;
    // Why `path`, which PathOf has named now or before, may not be opened; no error if it may.
    virtual std::error_code RefusalOf(const std::string& path) const = 0;
    // Throws std::system_error with a code that compares with std::errc.
    virtual std::unique_ptr<OpenDevice> Open(const std::string& path, Received received) = 0;
};

// Those of the machine (serial/device.h).
Devices& MachineDevices();

}  // namespace zps::serial
