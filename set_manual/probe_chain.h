// The exchanges of the settings window: the four that identify and initialise a supply one after
// another, and single probes.
#pragma once

#include "controls/handlers.h"
#include "controls/timer.h"
#include "serial/port.h"
#include "set_manual/check_progress.h"
#include "source/source.h"
#include "source/transmitter.h"

#include <chrono>
#include <cstdint>
#include <functional>

namespace zps {

// What the window is told.
struct ProbeEvents {
    // An exchange has ended; `asked` is what its frame asked.
    std::function<void(Reply result, CheckStage asked)> Result;
    // A supply whose ratings were not known has told them, in V and A.
    std::function<void(double volts, double amps)> Ratings;
    // The supply has switched all its functions off.
    std::function<void()> FunctionsOff;
    // The chain has come to its last exchange, which the operator may repeat.
    std::function<void()> DataProbeReady;
    // The check has come to another state. After Result, where both are told.
    std::function<void()> Progress;
};

class ProbeChain {
  public:
    // Made while the window loads; the probes go to the address that is chosen then.
    ProbeChain(SOURCE& source, serial::Port& port, serial::EventLoop& loop, Handlers& handlers,
               ProbeEvents events);

    // The operator has chosen `address`, perhaps the present one again. What is known of the supply
    // at another address, RxResult, is not known of this one.
    void SetAddress(std::int16_t address);

    // Starts the chain 0.2 s from now, for a window that has just opened.
    void StartAfterLoad();
    // Starts the chain 50 ms from now, after a choice. What is in progress ends at once.
    void Restart();

    // Single probes. Each ends the exchange in progress; a chain goes on after it. Both throw
    // serial::PortError where the port is closed and OverflowError where FormAddr has no place.
    void ProbeEnq();
    void ProbeDle();

    // Ends the exchange in progress and the chain; nothing is sent and no timer runs after it.
    void Stop();

    const CheckProgress& Progress() const { return Check; }

  private:
    // The exchange of the chain that was begun last: an acknowledgement starts the one after it.
    enum class Stage : std::int16_t { Idle = 0, Asking = 1, GoingRemote = 2, Initialising = 3 };

    void StartIn(std::chrono::milliseconds delay);
    void EndExchange();
    void Ask(Frame frame, std::int16_t replyFlag, CheckStage stage);
    void comPOWER_OnComm();
    Reply Judge(const Bytes& reply);
    bool TellsUnknownRatings() const;
    void TakeRatings(const Bytes& reply);
    void Finish(Reply result);
    void MoveOn();
    void StartSoon(Timer& timer, CheckStage stage);

    void tmrSTART_ENQ_Timer();
    void tmrZPS_Remote_Timer();
    void tmrPower_Init_Timer();
    void tmrSTART_DLE_Timer();
    // Lets pending events run; false if one of them has ended the exchange.
    bool RunPendingEvents();

    SOURCE& Source;
    serial::Port& Port;
    serial::EventLoop& Loop;
    Transmitter Sender;
    ProbeEvents Tell;
    CheckProgress Check;
    Timer tmrSTART_ENQ;
    Timer tmrZPS_Remote;
    Timer tmrPower_Init;
    Timer tmrSTART_DLE;
    std::int16_t FormAddr;  // the window's address, which goes into the probes
    Stage ProbeStage = Stage::Idle;
    CheckStage Asked = CheckStage::Answer;  // in the exchange begun last
    bool AnswerAwaited = false;             // the exchange in progress is still without a result
    bool InitialisationOut = false;  // the exchange in progress is that of the initialisation frame
    unsigned ExchangeNumber = 0;     // tells a handler that its exchange was ended while it waited
};

}  // namespace zps
