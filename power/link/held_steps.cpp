#include "power/link/held_steps.h"

#include <chrono>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto AnswerLimit = 1s;  // an answer that has not come by then will not come
}

StepValues Only(StepValue value) {
    return StepValues().set(static_cast<std::size_t>(value));
}

StepValues AllValues() {
    return StepValues().set();
}

HeldSteps::HeldSteps(SOURCE& source, serial::Port& port, Transmitter& line, Timekeeper& time)
    : Source(source), Port(port), Line(line), tmrANSWER(time.MakeTicker("tmrANSWER", AnswerLimit)) {
    Line.OnOutstanding([this] { HearAnswer(); });
    tmrANSWER->OnTick([this] { tmrANSWER_Timer(); });
}

void HeldSteps::Send(int step, StepValues values, Frame frame) {
    Line.AwaitOutstanding();  // hears the answer to the values before
    Acknowledged.at(Index(step)) &= ~values;
    Mark(step, (Acknowledged.at(Index(step)) | values).all());
    try {
        Line.Send(std::move(frame), ExpectAck);
    } catch (...) {
        Refuse({step, values});
        throw;
    }
    Awaited = {step, values};
    tmrANSWER->Restart();
    Told();
}

void HeldSteps::Changed(int step, StepValue value) {
    Acknowledged.at(Index(step)) &= ~Only(value);
    Mark(step, false);
    Told();
}

void HeldSteps::Forget() {
    Awaited.reset();
    Acknowledged.fill({});
    Refusals.fill({});
    Source.Flags.reset();
    Told();
}

void HeldSteps::Answered(Reply result) {
    if (result != Reply::None) Judge(result);  // one that is late may still come
}

void HeldSteps::HearAnswer() {
    if (!Awaited) return;
    const Bytes reply = GatherReply(Port, 0, serial::WaitMode::HoldEvents);
    Judge(JudgeReply(reply, ExpectAck, Source.PowerAddr, CheckByte::Whole));
}

void HeldSteps::Judge(Reply result) {
    if (!Awaited) return;
    const Sent sent = *std::exchange(Awaited, std::nullopt);
    tmrANSWER->SetEnabled(false);
    if (result != Reply::Ack) {
        Refuse(sent);
        return;
    }
    Acknowledged.at(Index(sent.Step)) |= sent.Values;
    Refusals.at(Index(sent.Step)) &= ~sent.Values;
    Mark(sent.Step, Acknowledged.at(Index(sent.Step)).all());
    Told();
}

void HeldSteps::Refuse(const Sent& sent) {
    Refusals.at(Index(sent.Step)) |= sent.Values;
    Mark(sent.Step, false);
    Told();
}

void HeldSteps::Mark(int step, bool held) {
    Source.Flags.set(Index(step), held);
}

void HeldSteps::tmrANSWER_Timer() {
    if (Port.InBufferCount() > 0) return;  // an answer waits behind a box: its event comes next
    tmrANSWER->SetEnabled(false);
    Judge(Reply::None);
}

}  // namespace zps
