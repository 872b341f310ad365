// Cuts the stream of bytes that comes over the line into frames.
#pragma once

#include "simulator/wire.h"

namespace zps::simulator {

enum class FrameKind {
    Control,   // address, ENQ, DLE, DC1 or DC3, sum
    Commands,  // address, STX, length, commands, ETX, sum
    Broken,    // begins like one of them, but its length, ETX or sum is wrong
    Noise      // does not even begin like a frame
};

struct Frame {
    FrameKind Kind;
    Bytes Content;
    Time FirstAt;  // when its first and its last byte were seen
    Time LastAt;
};

// A frame that is right is given out as soon as it is whole. Anything else is kept until the line
// has been idle for IdleGap (a frame is sent in one go); then the bytes before the first point from
// which only right frames follow are given out as broken or noise, and the frames after them.
class FrameSplitter {
  public:
    static constexpr std::chrono::milliseconds IdleGap{20};

    // Takes bytes that were read at `now`.
    void Take(ByteView bytes, Time now);
    // The frames that are complete at `now`, in their order. Each is given out once.
    std::vector<Frame> Frames(Time now);
    // When Frames() should be asked again even if no byte comes; Time::max() if never.
    Time NextLook() const;
    // Forgets what is pending.
    void Clear() { Pending.clear(); }

  private:
    struct Arrival {
        std::uint8_t Byte;
        Time At;
    };

    Bytes PendingBytes() const;
    Frame Cut(std::size_t count, FrameKind kind);

    std::vector<Arrival> Pending;
};

}  // namespace zps::simulator
