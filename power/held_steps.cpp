#include "power/held_steps.h"

namespace zps {

void HeldSteps::Mark(int step) {
    Source.StepFlag.at(static_cast<std::size_t>(step)) = true;
    Open = step;
    Sent = serial::Clock::now();
}

void HeldSteps::Answered(Reply result) {
    if (!Open) return;
    if (result == Reply::Ack) {
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
