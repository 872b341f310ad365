// One open serial device, read by a thread of its own. Lives from opening to closing or loss; what
// a port is beyond that (numbers, events, coming back) is asio_port.cpp's affair.
//
// Loss: any error in reading or writing, and a write that the device doesn't take in time. The
// device is closed at once then (a pulled adapter gets its name back only when nobody holds it any
// more) and its thread ends.
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
    // reader's thread.
    AsioDevice(const std::string& path,
               std::function<void(std::span<const std::uint8_t>)> received);
    // Lets written bytes leave, for LongestWrite at most, closes, and ends the thread.
    ~AsioDevice();
    AsioDevice(const AsioDevice&) = delete;
    AsioDevice& operator=(const AsioDevice&) = delete;

    bool IsLost() const;

    // Writes the block whole; returns when the system has taken it or the device is lost.
    void Write(std::span<const std::uint8_t> block);

  private:
    struct Inside;
    std::unique_ptr<Inside> Self;
};

}  // namespace zps::serial
