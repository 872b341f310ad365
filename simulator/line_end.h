// The supplies' end of a line: a pseudo-terminal, or memory.
#pragma once

#include "simulator/wire.h"

#include <span>
#include <string>

namespace zps::simulator {

// Wait belongs to one thread and may run while another one calls anything else here; the other
// calls must not overlap each other.
class LineEnd {
  public:
    // Starts closed.
    LineEnd() = default;
    virtual ~LineEnd() = default;
    LineEnd(const LineEnd&) = delete;
    LineEnd& operator=(const LineEnd&) = delete;

    // Plugs the line in, mostly as a fresh device that Name() tells. Throws std::system_error. Does
    // nothing if it is open.
    virtual void Open() = 0;
    // Hangs up: whoever has the device open sees that it is lost.
    virtual void Close() = 0;
    // The device's name, empty while closed.
    virtual std::string Name() const = 0;

    // Sleeps until bytes may have come, Wake() was called or `until` has passed.
    virtual void Wait(Time until) = 0;
    // Ends a Wait, also one that has not begun. Any thread.
    virtual void Wake() = 0;

    // Reads what has come without waiting: the number of bytes put into `room`, 0 if there are none
    // or nobody has the device open. Read until it gives 0 before the next Wait.
    virtual std::size_t Read(std::span<std::uint8_t> room) = 0;
    // Writes without waiting. Bytes are lost while nobody has the device open, or if nobody reads
    // for so long that no more are taken.
    virtual void Write(ByteView bytes) = 0;
    // While the line is full, what the panel writes has to wait. An end whose panel can't wait is
    // just not read meanwhile.
    virtual void Fill(bool /*full*/) {}
};

}  // namespace zps::simulator
