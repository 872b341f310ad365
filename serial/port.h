// One serial port at 9600 baud, 8 data bits, no parity, 1 stop bit.
//
// Threading: a port belongs to the thread of its EventLoop; every call here is made on that thread,
// and the receive event is raised on it. An implementation may run its device on a thread of its
// own: that thread reads and writes what Output and SetPortOpen hand it, and touches nothing of the
// owner's but the locked buffer of what has arrived and the EventLoop's Post.
//
// Errors: PortError, from SetPortOpen(true) (no such device, in use, no permission) and from Output
// (the port is closed); it carries a code and no words for people. A device that is lost while the
// port is open is no error: the line is silent, and each later Output tries to open the device
// again.
//
// What has arrived and was not read is kept up to 16 384 bytes, 17 s of the line's 960 bytes/s;
// what comes while that is full is lost. Who discards the input before a frame, as all windows do,
// never loses a byte of its reply that way.
//
// Ownership: whoever creates a port owns it. Destroying it closes it.
#pragma once

#include "serial/event_loop.h"

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string>
#include <system_error>
#include <vector>

namespace zps::serial {

// Reasons for which a port can't be opened that the system does not know.
enum class PortFault {
    // The link COMn stands in a folder that is not for the user alone: anyone may have made it.
    LinkFolderNotPrivate = 1
};
std::error_code make_error_code(PortFault fault);

// A port can't be opened, or was written to while it was closed. The code is a PortFault or
// compares with std::errc on every system; `std::errc::bad_file_descriptor` is the closed port.
// `what()` is the system's text.
class PortError : public std::system_error {
  public:
    PortError(int commPort, std::error_code reason)
        : std::system_error(reason), CommPort(commPort) {}
    int CommPort;  // the number of the port, 1 to 4
};

// What the owning thread does while it waits: nothing, or its events.
enum class WaitMode { HoldEvents, RunEvents };

// When the receive event is raised: when bytes have arrived, or also when a block has gone out.
enum class EventKind { Input, InputAndOutput };

class Port {
  public:
    virtual ~Port() = default;

    // Port number, 1 to 4. A new number counts from the next opening on.
    int CommPort() const { return Number; }
    void SetCommPort(int number) { Number = number; }

    // Opening claims the device for this program alone; opening an open port does nothing.
    // Closing lets written bytes leave first, for at most 0.2 s, and ends every wait.
    virtual bool PortOpen() const = 0;
    virtual void SetPortOpen(bool open) = 0;
    // By which name the device was opened; empty while the port is closed. A link counts as the
    // same device wherever it points.
    virtual std::string Device() const = 0;

    // Bytes that have arrived and were not read.
    virtual std::size_t InBufferCount() const = 0;
    // Throws away what has arrived, the buffer count becomes 0, and tells what it was.
    virtual std::vector<std::uint8_t> DiscardInput() = 0;
    // Reads one byte. Calling it with an empty buffer is a fault of the caller (std::logic_error).
    virtual std::uint8_t Input() = 0;

    // Writes the block whole and returns once the system has taken it; bounded by 0.2 s, after
    // which the device counts as lost. Throws PortError where the port is closed.
    virtual void Output(std::span<const std::uint8_t> block) = 0;

    // Waits until at least `count` bytes have arrived (true), or `limit` has passed or the port has
    // been closed (false). The thread sleeps meanwhile.
    virtual bool WaitForInput(std::size_t count, std::chrono::milliseconds limit,
                              WaitMode mode) = 0;
    // Waits for `limit`, or until the port is closed.
    virtual void Pause(std::chrono::milliseconds limit, WaitMode mode) = 0;

    // The receive event. While `handler` runs (its waits and message boxes included), further
    // notifications are kept as one; that one runs after it, and only if bytes wait or, for
    // EventKind::InputAndOutput, a block has gone out since. Nothing is raised on a closed port.
    virtual void OnReceive(EventKind kind, std::function<void()> handler) = 0;

  private:
    int Number = 1;
};

// Makes the ports of the windows; a test hands out its own.
class PortMaker {
  public:
    virtual ~PortMaker() = default;
    virtual std::unique_ptr<Port> MakePort() = 0;
    // The device that port `number` would open now, for people ("/dev/ttyUSB0", "COM3"); empty if
    // there is none. Throws PortError where there is one that the port would refuse.
    virtual std::string DeviceOf(int number) const = 0;
};

}  // namespace zps::serial

template <>
struct std::is_error_code_enum<zps::serial::PortFault> : std::true_type {};
