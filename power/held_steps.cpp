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
    Doubtful = Open == step;
    if (Open) TakeBack();
    Source.StepFlag.at(static_cast<std::size_t>(step)) = true;
    Open = step;
    Sent = serial::Clock::now();
}

void HeldSteps::Answered(Reply result) {
    if (!Open) return;
    const Bytes& frame = Source.TxFrame;
    const bool complete = SetsAllValues(frame) || (SetsOneValue(frame) && !Doubtful);
    if (result == Reply::Ack && complete) {
        Open.reset();
    } else {
        TakeBack();
    }
}

void HeldSteps::Expire(serial::Clock::time_point now, serial::Clock::duration limit) {
    if (Open && now - Sent >= limit) TakeBack();
}

void HeldSteps::TakeBack() {
    Source.StepFlag.at(static_cast<std::size_t>(*Open)) = false;
    Open.reset();
    Source.PaintStepRows(CurStep);
}

}  // namespace zps
