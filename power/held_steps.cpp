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

void HeldSteps::Mark(int step) {
    if (Open) HearAnswer();
    Source.StepFlag.at(static_cast<std::size_t>(step)) = true;
    Open = step;
    Sent = serial::Clock::now();
}

void HeldSteps::Answered(Reply result) {
    if (!Open) return;
    const Bytes& frame = Source.TxFrame;
    bool& doubt = Doubtful.at(static_cast<std::size_t>(*Open));
    if (SetsAllValues(frame)) doubt = false;
    if (result == Reply::Ack && !doubt && (SetsAllValues(frame) || SetsOneValue(frame))) {
        Open.reset();
    } else {
        TakeBack();
    }
}

void HeldSteps::HearAnswer() {
    const Bytes reply = GatherReply(Line, AckLength, serial::WaitMode::HoldEvents);
    if (!reply.empty()) Source.RxBusy = false;
    Answered(JudgeReply(reply, ExpectAck, Source.PowerAddr, CheckByte::Whole));
}

void HeldSteps::Expire(serial::Clock::time_point now, serial::Clock::duration limit) {
    if (Open && now - Sent >= limit) TakeBack();
}

void HeldSteps::TakeBack() {
    const auto step = static_cast<std::size_t>(*Open);
    Source.StepFlag.at(step) = false;
    Doubtful.at(step) = true;  // until all its values have been acknowledged at once
    Open.reset();
    Source.PaintStepRows(CurStep);
}

}  // namespace zps
