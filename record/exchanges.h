// Which reply answers which frame, how long it took and what it is worth.
#pragma once

#include "record/line_trace.h"
#include "source/reply.h"

#include <functional>
#include <optional>

namespace zps {

// What has come of an exchange, or of a message outside of any.
enum class Outcome : std::uint8_t {
    Ack,
    Nak,
    Data,
    BadAnswer,  // bytes that are no valid answer to the frame
    Thrown,     // an answer came and was thrown away unread
    NoAnswer,
    Unasked,  // bytes that answer nothing
    PortOpened,
    PortClosed,
    PortNotOpened,
};

bool IsError(Outcome outcome);

// One message of a trace, with what is known of its exchange.
struct TracedMessage {
    std::uint64_t Number = 0;  // in the trace
    Outcome Result = Outcome::Unasked;
    bool Poll = false;    // a DLE or the answer to one
    bool Answer = false;  // Result is what this message is; of a frame it is what came of it
    std::optional<std::chrono::microseconds> After{};  // an answer: from sending to reading it
};

// Follows a trace and hands its messages on in their order. A frame is handed on together with what
// came of it: as soon as it is answered, or with the next frame, the closing of the port, or after
// LatestAnswer.
//
// A trace does not know which window was at the port. An acknowledgement counts as good where any
// of them takes it: by its sum modulo 256, as the settings and test windows judge it. The main
// window takes the whole sum, which differs only at addresses above 249, and nobody can choose one.
class Exchanges {
  public:
    static constexpr std::chrono::seconds LatestAnswer{1};

    using Take = std::function<void(const TracedMessage&)>;

    // Hands on what has come to `trace` since the last call, up to `now`.
    void Follow(const LineTrace& trace, serial::Clock::time_point now, const Take& take);

  private:
    struct Request {
        std::uint64_t Number;
        LineMessage Frame;
        bool Poll;
    };
    void Heed(std::uint64_t number, const LineMessage& message, const Take& take);
    void Answer(std::uint64_t number, const LineMessage& message, const Take& take);
    void GiveUp(const Take& take);

    std::uint64_t Next = 0;
    std::optional<Request> Awaiting;
};

}  // namespace zps
