// The master side of a pseudo-terminal in raw mode.
#pragma once

#include "simulator/wire.h"

#include <memory>
#include <span>
#include <string>

namespace zps::simulator {

// Wait belongs to one thread and may run while another one calls anything else here; the other
// calls must not overlap each other.
class Pty {
  public:
    // Starts closed. Throws std::system_error where the system has no means to wait.
    Pty();
    ~Pty();

    // Makes a device in raw mode, without echo, that Name() tells. Throws std::system_error. Does
    // nothing if it is open.
    void Open();
    // Hangs up: whoever has the device open sees an error, and its name is gone.
    void Close();
    // The device's name, empty while closed.
    std::string Name() const;

    // Sleeps until bytes may have come, Wake() was called or `until` has passed.
    void Wait(Time until);
    // Ends a Wait, also one that has not begun. Any thread.
    void Wake();

    // Reads what has come without waiting: the number of bytes put into `room`, 0 if there are none
    // or nobody has the device open. Read until it gives 0 before the next Wait.
    std::size_t Read(std::span<std::uint8_t> room);
    // Writes without waiting. Bytes are lost while nobody has the device open, or if nobody reads
    // for so long that the system takes no more.
    void Write(ByteView bytes);

  private:
    struct Inside;
    std::unique_ptr<Inside> Self;
};

}  // namespace zps::simulator
