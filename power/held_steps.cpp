#include "power/held_steps.h"

#include <string_view>

namespace zps {

namespace {

constexpr std::size_t UploadSize = 32;

char LetterOf(const Bytes& frame) {
    constexpr std::size_t letterPlace = 4;
    return frame.size() > letterPlace ? static_cast<char>(frame[letterPlace]) : '\0';
}

bool SetsAllValues(const Bytes& frame) {
    return LetterOf(frame) == 'S' && frame.size() == UploadSize;
}

bool SetsOneValue(const Bytes& frame) {
    return std::string_view("VCTDO").find(LetterOf(frame)) != std::string_view::npos;
}

}  // namespace

HeldSteps::HeldSteps(SOURCE& source, serial::Port& port, Transmitter& line,
                     const std::int16_t& curStep)
    : Source(source), Port(port), Line(line), CurStep(curStep) {
    Line.OnOutstanding([this] { return HearAnswer(); });
}

void HeldSteps::Mark(int step) {
    Line.AwaitOutstanding();
    Source.StepFlag.at(static_cast<std::size_t>(step)) = true;
    Awaited = step;
    Sent = serial::Clock::now();
}

void HeldSteps::Answered(Reply result) {
    if (result != Reply::None) Judge(result);  // one that is late may still come
}

void HeldSteps::Judge(Reply result) {
    if (!Awaited) return;
    const Bytes& frame = Source.TxFrame;
    bool& doubt = Doubtful.at(static_cast<std::size_t>(*Awaited));
    if (SetsAllValues(frame)) doubt = false;
    if (result == Reply::Ack && !doubt && (SetsAllValues(frame) || SetsOneValue(frame))) {
        Awaited.reset();
    } else {
        TakeBack();
    }
}

bool HeldSteps::HearAnswer() {
    if (!Awaited) return false;
    const Bytes reply = GatherReply(Port, AckLength, serial::WaitMode::HoldEvents);
    Judge(JudgeReply(reply, ExpectAck, Source.PowerAddr, CheckByte::Whole));
    return true;
}

void HeldSteps::Unsent(int step) {
    const auto index = static_cast<std::size_t>(step);
    Source.StepFlag.at(index) = false;
    Doubtful.at(index) = true;
}

void HeldSteps::Expire(serial::Clock::time_point now, serial::Clock::duration limit) {
    if (Awaited && now - Sent >= limit) TakeBack();
}

void HeldSteps::TakeBack() {
    Unsent(*Awaited);
    Awaited.reset();
    Source.PaintStepRows(CurStep);
}

}  // namespace zps
