#include "power/run/step_start.h"

#include <chrono>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

StepStart::StepStart(Timekeeper& time, Actions actions)
    : Act(std::move(actions)),
      tmrSTART(time.MakeTicker("tmrSTART", 200ms)),
      tmrStatus(time.MakeTicker("tmrStatus", 180ms)) {
    tmrSTART->OnTick([this] { tmrSTART_Timer(); });
    tmrStatus->OnTick([this] { tmrStatus_Timer(); });
}

void StepStart::CallOff() {
    RunPhase = Idle;
    tmrSTART->SetEnabled(false);
    tmrStatus->SetEnabled(false);
}

void StepStart::ReplyHandled() {
    if (RunPhase == AskingStatus || RunPhase == AskingFirst) tmrStatus->SetEnabled(true);
    if (RunPhase == Deciding) RunPhase = Act.OutputMayBeOn() ? Idle : Starting;
    if (RunPhase == Starting) tmrSTART->SetEnabled(true);
}

void StepStart::tmrSTART_Timer() {
    tmrSTART->SetEnabled(false);
    RunPhase = Idle;
    if (Act.Start()) RunPhase = AskingStatus;
}

void StepStart::tmrStatus_Timer() {
    tmrStatus->SetEnabled(false);
    RunPhase = RunPhase == AskingFirst ? Deciding : Idle;
    Act.Poll();
}

}  // namespace zps
