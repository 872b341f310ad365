#include "power/link/awaited_answer.h"

#include <chrono>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto AnswerLimit = 1s;  // an answer that has not come by then will not come
}

AwaitedAnswer::AwaitedAnswer(const SOURCE& source, serial::Port& port, Transmitter& line,
                             Timekeeper& time)
    : Source(source), Port(port), tmrANSWER(time.MakeTicker("tmrANSWER", AnswerLimit)) {
    line.OnOutstanding([this] { HearOutstanding(); });
    tmrANSWER->OnTick([this] { tmrANSWER_Timer(); });
}

void AwaitedAnswer::Await(Judge judge) {
    Waiting = std::move(judge);
    tmrANSWER->Restart();
}

void AwaitedAnswer::Forget() {
    Waiting = nullptr;
    tmrANSWER->SetEnabled(false);
}

void AwaitedAnswer::Heard(Reply result) {
    if (result != Reply::None) Tell(result);
}

void AwaitedAnswer::HearOutstanding() {
    if (!Awaited()) return;
    const Bytes reply = GatherReply(Port, 0, serial::WaitMode::HoldEvents);
    Tell(JudgeReply(reply, ExpectAck, Source.PowerAddr, CheckByte::Whole));
}

void AwaitedAnswer::tmrANSWER_Timer() {
    if (Port.InBufferCount() > 0) return;  // an answer waits behind a box: its event comes next
    Tell(Reply::None);
}

void AwaitedAnswer::Tell(Reply result) {
    if (!Awaited()) return;
    const Judge judge = std::exchange(Waiting, nullptr);
    tmrANSWER->SetEnabled(false);
    judge(result);
}

}  // namespace zps
