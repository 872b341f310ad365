// The step start: after the supply has gone under remote control the top step of the list is sent
// to it, and then its status is asked for once. Where its output may be on, the status is asked for
// first: no value may reach a live output by this.
#pragma once

#include "source/timekeeper.h"

#include <cstdint>
#include <functional>
#include <memory>

namespace zps {

class StepStart {
  public:
    struct Actions {
        std::function<bool()> Start;          // sends the top step, and tells whether it has
        std::function<void()> Poll;           // asks for the status
        std::function<bool()> OutputMayBeOn;  // as far as the supply has reported by now
    };
    StepStart(Timekeeper& time, Actions actions);

    // Starts once the next reply has been handled, or at once (0.2 s from now).
    void AfterNextReply() { RunPhase = Act.OutputMayBeOn() ? AskingFirst : Starting; }
    void Begin() { tmrSTART->SetEnabled(true); }
    // Whether the top step is about to be sent.
    bool UnderWay() const { return RunPhase > AskingStatus || tmrSTART->Enabled(); }
    // Nothing of it comes any more.
    void CallOff();
    void ReplyHandled();

  private:
    // What the next handled reply leads to.
    static constexpr std::int16_t Idle = 0;
    static constexpr std::int16_t AskingStatus = 1;
    static constexpr std::int16_t AskingFirst = 98;
    static constexpr std::int16_t Deciding = 99;  // it is the answer to that
    static constexpr std::int16_t Starting = 100;

    void tmrSTART_Timer();
    void tmrStatus_Timer();

    Actions Act;
    std::int16_t RunPhase = Idle;
    std::unique_ptr<Ticker> tmrSTART;
    std::unique_ptr<Ticker> tmrStatus;
};

}  // namespace zps
