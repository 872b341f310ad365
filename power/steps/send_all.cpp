#include "power/steps/send_all.h"

#include <algorithm>
#include <chrono>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto LookInterval = 10ms;
}

SendAll::SendAll(Timekeeper& time, Surround around)
    : Around(std::move(around)), tmrSEND(time.MakeTicker("tmrSEND", LookInterval)) {
    tmrSEND->OnTick([this] { tmrSEND_Timer(); });
}

std::vector<int> SendAll::Unsent() const {
    std::vector<int> steps;
    for (int step = 0; step < StepCount; ++step) {
        if (Around.Held.Unsent(step).any() || Around.Held.Refused(step).any())
            steps.push_back(step);
    }
    return steps;
}

void SendAll::Start() {
    const std::vector<int> steps = Unsent();
    Now = {.Of = static_cast<int>(steps.size()), .Before = Around.Selected()};
    Queue.assign(steps.begin(), steps.end());
    BeforeUnsent = std::erase(Queue, Now.Before) > 0;
    Queue.push_back(Now.Before);
    tmrSEND->Restart();
    ToldProgress(Now);
}

void SendAll::Cancel() {
    if (!Running()) return;
    Now.Cancelled = true;
    DropRest();
}

void SendAll::CallOff() {
    tmrSEND->SetEnabled(false);
    Queue.clear();
}

void SendAll::DropRest() {
    if (Queue.size() > 1) Queue.erase(Queue.begin(), Queue.end() - 1);
}

void SendAll::tmrSEND_Timer() {
    if (Around.AnswerDue()) return;
    if (Now.Step) JudgeAnswer();
    Now.OutputOn = !Around.OutputOff();
    if (Queue.empty() || Now.OutputOn)
        End();
    else
        SendNext();
}

void SendAll::JudgeAnswer() {
    const int step = *std::exchange(Now.Step, std::nullopt);
    if (!IsHeld(step)) {
        NoteRefusal(step, Around.Held.LastAnswer());
        DropRest();
    } else if (step != Now.Before || BeforeUnsent) {
        ++Now.Sent;
    }
}

void SendAll::NoteRefusal(int step, std::optional<Reply> answer) {
    if (Now.Refused) return;
    Now.Refused = step;
    Now.Answer = answer;
}

void SendAll::SendNext() {
    const int step = Queue.front();
    Queue.pop_front();
    Now.Step = step;
    ToldProgress(Now);
    try {
        Around.Upload(step);
    } catch (...) {
        NoteRefusal(step, std::nullopt);
        End();
        throw;
    }
}

void SendAll::End() {
    CallOff();
    Now.Step.reset();
    Now.Reselected = IsHeld(Now.Before);
    ToldEnd(Now);
}

}  // namespace zps
