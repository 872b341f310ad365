#include "record/exchanges.h"

#include <algorithm>
#include <utility>

namespace zps {

namespace {

bool AsksForData(const LineMessage& frame) {
    return frame.Data.size() == AckLength && frame.Data[1] == code::Dle;
}

Outcome OutcomeOf(Reply reply) {
    switch (reply) {
        case Reply::Ack:
            return Outcome::Ack;
        case Reply::Nak:
            return Outcome::Nak;
        case Reply::Data:
            return Outcome::Data;
        default:
            return Outcome::BadAnswer;
    }
}

Outcome Judge(const LineMessage& frame, const LineMessage& answer) {
    if (answer.What == LineEvent::Thrown) return Outcome::Thrown;
    if (frame.Data.empty()) return Outcome::BadAnswer;
    return OutcomeOf(JudgeReply(answer.Data, AsksForData(frame) ? ExpectData : ExpectAck,
                                frame.Data.front(), CheckByte::Wrapped));
}

Outcome OutcomeOf(LineEvent atThePort) {
    if (atThePort == LineEvent::Opened) return Outcome::PortOpened;
    return atThePort == LineEvent::Closed ? Outcome::PortClosed : Outcome::PortNotOpened;
}

}  // namespace

bool IsError(Outcome outcome) {
    switch (outcome) {
        case Outcome::Ack:
        case Outcome::Data:
        case Outcome::PortOpened:
        case Outcome::PortClosed:
            return false;
        default:
            return true;
    }
}

void Exchanges::Follow(const LineTrace& trace, serial::Clock::time_point now, const Take& take) {
    if (Next < trace.First()) {  // what has not been looked at is gone
        Awaiting.reset();
        Next = trace.First();
    }
    for (; Next < trace.End(); ++Next) Heed(Next, *trace.Find(Next), take);
    if (Awaiting && now - Awaiting->Frame.When.At > LatestAnswer) GiveUp(take);
}

void Exchanges::Heed(std::uint64_t number, const LineMessage& message, const Take& take) {
    const bool answer = message.What == LineEvent::Read || message.What == LineEvent::Thrown;
    if (answer) return Answer(number, message, take);
    GiveUp(take);
    if (message.What == LineEvent::Sent)
        Awaiting = Request{number, message, AsksForData(message)};
    else
        take({.Number = number, .Result = OutcomeOf(message.What)});
}

void Exchanges::Answer(std::uint64_t number, const LineMessage& message, const Take& take) {
    const bool late = Awaiting && message.When.At - Awaiting->Frame.When.At > LatestAnswer;
    if (late) GiveUp(take);
    if (!Awaiting) return take({.Number = number, .Result = Outcome::Unasked, .Answer = true});
    const Request asked = *std::exchange(Awaiting, std::nullopt);
    const Outcome outcome = Judge(asked.Frame, message);
    TracedMessage told{.Number = asked.Number, .Result = outcome, .Poll = asked.Poll};
    take(told);
    told.Number = number;
    told.Answer = true;
    if (outcome != Outcome::Thrown)
        told.After =
            duration_cast<std::chrono::microseconds>(message.When.At - asked.Frame.When.At);
    take(told);
}

void Exchanges::GiveUp(const Take& take) {
    if (!Awaiting) return;
    const Request asked = *std::exchange(Awaiting, std::nullopt);
    take({.Number = asked.Number, .Result = Outcome::NoAnswer, .Poll = asked.Poll});
}

}  // namespace zps
