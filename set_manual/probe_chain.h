// The exchanges of the settings window: the four that identify and initialise a supply one after
// another, and single probes.
#pragma once

#include "controls/handlers.h"
#include "controls/timer.h"
#include "serial/port.h"
#include "source/source.h"
#include "source/transmitter.h"

#include <cstdint>
#include <functional>

namespace zps {

// What the window is told.
struct ProbeEvents {
    // An exchange has ended; `asked` is what its frame asked for.
    std::function<void(Reply result, std::int16_t asked)> Result;
    // A supply whose ratings were not known has told them, in V and A.
    std::function<void(double volts, double amps)> Ratings;
    // The supply has switched all its functions off.
    std::function<void()> FunctionsOff;
    // The chain has come to its last exchange, which the operator may repeat.
    std::function<void()> DataProbeReady;
};

class ProbeChain {
  public:
    // Values of ProbeStage.
    static constexpr std::int16_t Loading = 99;
    static constexpr std::int16_t Idle = 0;
    static constexpr std::int16_t Asking = 1;
    static constexpr std::int16_t GoingRemote = 2;
    static constexpr std::int16_t Initialising = 3;

    ProbeChain(SOURCE& source, serial::Port& port, serial::EventLoop& loop, Handlers& handlers,
               ProbeEvents events);

    std::int16_t FormAddr = 0;  // the window's address, which goes into the probes
    // The window itself sets Loading and Idle, around the filling of its controls; the chain sets
    // the others.
    std::int16_t ProbeStage = Loading;

    // Starts the chain after `delay`, whatever is in progress.
    void Restart(std::chrono::milliseconds delay);
    // The same as the window opens, when no stage has been entered yet.
    void StartLater(std::chrono::milliseconds delay);

    // Single probes. Each ends the exchange in progress; a chain goes on after it. Both throw
    // serial::PortError where the port is closed and OverflowError where FormAddr has no place.
    void ProbeEnq();
    void ProbeDle();

    // Ends the exchange in progress and the chain; nothing is sent and no timer runs after it.
    void Stop();

  private:
    void EndExchange();
    void Exchange(Frame frame, std::int16_t replyFlag);
    void comPOWER_OnComm();
    Reply Judge(const Bytes& reply);
    bool TellsUnknownRatings() const;
    void TakeRatings(const Bytes& reply);
    void Finish(Reply result);
    void MoveOn();

    void tmrSTART_ENQ_Timer();
    void tmrZPS_Remote_Timer();
    void tmrPower_Init_Timer();
    void tmrSTART_DLE_Timer();
    // Lets pending events run; false if one of them has ended the exchange.
    bool RunPendingEvents();

    SOURCE& Source;
    serial::Port& Port;
    serial::EventLoop& Loop;
    Transmitter Line;
    ProbeEvents Tell;
    Timer tmrSTART_ENQ;
    Timer tmrZPS_Remote;
    Timer tmrPower_Init;
    Timer tmrSTART_DLE;
    bool InitialisationOut = false;  // the exchange in progress is that of the initialisation frame
    unsigned ExchangeNumber = 0;     // tells a handler that its exchange was ended while it waited
};

}  // namespace zps
