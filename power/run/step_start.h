// The step start: after the supply has gone under remote control the top step of the list is sent
// to it, and then its status is asked for once.
#pragma once

#include "source/timekeeper.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace zps {

class StepStart {
  public:
    // `start` sends the top step and tells whether it has; `poll` asks for the status.
    StepStart(Timekeeper& time, std::function<bool()> start, std::function<void()> poll);

    // Starts once the next reply has been handled, or at once (0.2 s from now).
    void AfterNextReply() { RunPhase = Starting; }
    void Begin() { tmrSTART->SetEnabled(true); }
    // Whether the top step is about to be sent.
    bool UnderWay() const { return RunPhase == Starting || tmrSTART->Enabled(); }
    // Nothing of it comes any more.
    void CallOff();
    void ReplyHandled();

  private:
    // What the next handled reply leads to.
    static constexpr std::int16_t Idle = 0;
    static constexpr std::int16_t AskingStatus = 1;
    static constexpr std::int16_t Starting = 100;

    void tmrSTART_Timer();
    void tmrStatus_Timer();

    std::function<bool()> Start;
    std::function<void()> Poll;
    std::int16_t RunPhase = Idle;
    std::unique_ptr<Ticker> tmrSTART;
    std::unique_ptr<Ticker> tmrStatus;
};

}  // namespace zps
