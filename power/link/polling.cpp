#include "power/link/polling.h"

#include <chrono>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto AnswerLimit = 1s;  // an answer that has not come by then will not come
constexpr auto WatchInterval = 100ms;
}  // namespace

Polling::Polling(PowerParts& parts, const ReplyHandler& replies)
    : Parts(parts),
      Replies(replies),
      tmrWatch(QStringLiteral("tmrWatch"), WatchInterval, parts.Events, TickMode::WhenFree) {
    Parts.Timers.tmrDLE.OnTick([this] { tmrDLE_Timer(); });
    Parts.Timers.tmrStatus.OnTick([this] { tmrStatus_Timer(); });
    tmrWatch.OnTick([this] { tmrWatch_Timer(); });
    tmrWatch.SetEnabled(true);
}

void Polling::tmrDLE_Timer() {
    PollSupply();
}

void Polling::tmrStatus_Timer() {
    Parts.Timers.tmrStatus.SetEnabled(false);
    Parts.State.RunPhase = PowerState::PhaseIdle;
    PollSupply();
}

void Polling::PollSupply() {
    Parts.Line.Send(ControlFrame(Parts.Source.PowerAddr, code::Dle), ExpectData);
}

// Many commands stop the poll and leave it to their answer to start it again. One lost answer must
// not end it while the output is on.
void Polling::tmrWatch_Timer() {
    const auto now = serial::Clock::now();
    Parts.Held.Expire(now, AnswerLimit);
    if (!Parts.Line.PortOpen()) return;  // another window has the port
    const bool silent = now - Replies.LastReply() >= AnswerLimit;
    if (!Parts.State.OutputOn || !silent || Parts.Timers.tmrDLE.Enabled()) return;
    Parts.Timers.tmrDLE.SetEnabled(true);
    PollSupply();
}

}  // namespace zps
