#include "power/link/held_steps.h"

#include <string_view>

namespace zps {

namespace {

constexpr std::size_t UploadSize = 32;

char LetterOf(const Bytes& frame) {
    constexpr std::size_t letterPlace = 4;
    return frame.size() > letterPlace ? static_cast<char>(frame[letterPlace]) : '\0';
}

constexpr std::string_view ValueLetters = "VCTDO";
constexpr unsigned AllValues = (1U << ValueLetters.size()) - 1;

// Which values of a step `frame` sets, a bit for each letter.
unsigned ValuesIn(const Bytes& frame) {
    const char letter = LetterOf(frame);
    if (letter == 'S' && frame.size() == UploadSize) return AllValues;
    const auto place = ValueLetters.find(letter);
    return place == std::string_view::npos ? 0 : 1U << place;
}

}  // namespace

HeldSteps::HeldSteps(SOURCE& source, serial::Port& port, Transmitter& line,
                     const std::int16_t& curStep)
    : Source(source), Port(port), Line(line), CurStep(curStep) {
    Line.OnOutstanding([this] { HearAnswer(); });
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
    unsigned& doubt = Doubtful.at(static_cast<std::size_t>(*Awaited));
    if (result == Reply::Ack) doubt &= ~ValuesIn(Source.TxFrame);
    if (result == Reply::Ack && doubt == 0)
        Awaited.reset();
    else
        TakeBack(result == Reply::Ack ? 0 : ValuesIn(Source.TxFrame));
}

void HeldSteps::HearAnswer() {
    if (!Awaited) return;
    const Bytes reply = GatherReply(Port, 0, serial::WaitMode::HoldEvents);
    Judge(JudgeReply(reply, ExpectAck, Source.PowerAddr, CheckByte::Whole));
}

void HeldSteps::Unsent(int step) {
    Doubt(step, AllValues);
}

void HeldSteps::Doubt(int step, unsigned values) {
    const auto index = static_cast<std::size_t>(step);
    Source.StepFlag.at(index) = false;
    Doubtful.at(index) |= values;
}

void HeldSteps::Expire(serial::Clock::time_point now, serial::Clock::duration limit) {
    if (Awaited && now - Sent >= limit) TakeBack(ValuesIn(Source.TxFrame));
}

void HeldSteps::TakeBack(unsigned values) {
    Doubt(*Awaited, values);
    Awaited.reset();
    Source.PaintStepRows(CurStep);
    if (TakenBack) TakenBack();
}

}  // namespace zps
