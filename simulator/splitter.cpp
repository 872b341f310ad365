#include "simulator/splitter.h"

#include <algorithm>
#include <optional>

namespace zps::simulator {

namespace {

constexpr std::size_t ControlSize = 3;
constexpr std::size_t HeadSize = 3;       // address, STX, length
constexpr std::size_t AroundSize = 5;     // the head, ETX and sum
constexpr std::size_t LongestKept = 512;  // a stream without gaps is noise

bool IsControlCode(std::uint8_t code) {
    return code == Enq || code == Dle || code == Dc1 || code == Dc3;
}

bool BeginsLikeFrame(ByteView bytes) {
    return bytes.size() >= 2 && (bytes[1] == Stx || IsControlCode(bytes[1]));
}

bool SumIsRight(ByteView frame) {
    return SumOf(frame.first(frame.size() - 1)) == frame.back();
}

struct Front {
    std::size_t Size;
    FrameKind Kind;
};

// The frame that `bytes` begin with, if it is whole and its framing is right.
std::optional<Front> FrameInFront(ByteView bytes) {
    if (bytes.size() < ControlSize) return std::nullopt;
    if (IsControlCode(bytes[1])) {
        if (!SumIsRight(bytes.first(ControlSize))) return std::nullopt;
        return Front{ControlSize, FrameKind::Control};
    }
    const std::size_t size = bytes[2] + AroundSize;
    if (bytes[1] != Stx || bytes.size() < size) return std::nullopt;
    if (bytes[HeadSize] != Esc || bytes[size - 2] != Etx) return std::nullopt;
    return Front{size, SumIsRight(bytes.first(size)) ? FrameKind::Commands : FrameKind::Broken};
}

bool HoldsOnlyRightFrames(ByteView bytes) {
    while (!bytes.empty()) {
        const auto front = FrameInFront(bytes);
        if (!front || front->Kind == FrameKind::Broken) return false;
        bytes = bytes.subspan(front->Size);
    }
    return true;
}

// How many bytes come before the first point from which only right frames follow: all of them if
// there is no such point.
std::size_t CountBeforeFrames(ByteView bytes) {
    std::size_t count = 1;
    while (count < bytes.size() && !HoldsOnlyRightFrames(bytes.subspan(count))) ++count;
    return count;
}

}  // namespace

void FrameSplitter::Take(ByteView bytes, Time now) {
    for (const std::uint8_t byte : bytes) Pending.push_back({byte, now});
}

std::vector<Frame> FrameSplitter::Frames(Time now) {
    std::vector<Frame> frames;
    while (!Pending.empty()) {
        const Bytes bytes = PendingBytes();
        if (const auto front = FrameInFront(bytes)) {
            frames.push_back(Cut(front->Size, front->Kind));
        } else if (now >= NextLook()) {
            const auto kind = BeginsLikeFrame(bytes) ? FrameKind::Broken : FrameKind::Noise;
            frames.push_back(Cut(CountBeforeFrames(bytes), kind));
        } else {
            break;
        }
    }
    return frames;
}

Time FrameSplitter::NextLook() const {
    if (Pending.empty()) return Time::max();
    if (Pending.size() > LongestKept) return Pending.back().At;
    return Pending.back().At + IdleGap;
}

Bytes FrameSplitter::PendingBytes() const {
    Bytes bytes(Pending.size());
    std::ranges::transform(Pending, bytes.begin(), &Arrival::Byte);
    return bytes;
}

Frame FrameSplitter::Cut(std::size_t count, FrameKind kind) {
    const auto end = Pending.begin() + static_cast<std::ptrdiff_t>(count);
    Frame frame{kind, Bytes(count), Pending.front().At, std::prev(end)->At};
    std::transform(Pending.begin(), end, frame.Content.begin(),
                   [](const Arrival& arrival) { return arrival.Byte; });
    Pending.erase(Pending.begin(), end);
    return frame;
}

}  // namespace zps::simulator
