// One open serial device with a thread of its own, which does all that is done on the device: it
// reads, writes, lets written bytes leave and closes. What a port is beyond that (numbers, events,
// coming back) is asio_port.cpp's affair.
//
// Loss: any error in reading or writing, and a write that the device doesn't take in time. The
// device is closed at once then: a pulled adapter gets its name back only when nobody holds it any
// more.
//
// Threading: one thread makes, uses and destroys the object; `received` alone is called on the
// device's thread.
#pragma once

#include <chrono>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>

namespace zps::serial {

class AsioDevice {
  public:
    // The longest that a write or the wait for written bytes at closing takes.
    static constexpr std::chrono::milliseconds LongestWrite{200};

    // Opens and claims the device at 9600 baud, 8N1, raw. Throws std::system_error with a
    // code that compares with std::errc. `received` is called with what has been read, on the
    // device's thread; the device waits meanwhile.
    AsioDevice(const std::string& path,
               std::function<void(std::span<const std::uint8_t>)> received);
    // Lets written bytes leave, for LongestWrite at most, closes, and ends the thread.
    ~AsioDevice();
    AsioDevice(const AsioDevice&) = delete;
    AsioDevice& operator=(const AsioDevice&) = delete;

    // Stays so once it is true.
    bool IsLost() const;

    // Writes the block whole; returns when the system has taken it or the device is lost, after
    // LongestWrite at most.
    void Write(std::span<const std::uint8_t> block);

  private:
    struct Inside;
    std::unique_ptr<Inside> Self;
};

}  // namespace zps::serial
