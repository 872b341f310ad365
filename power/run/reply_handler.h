// What the main window does with a reply.
#pragma once

#include "power/link/awaited_answer.h"
#include "power/link/history.h"
#include "power/link/polling.h"
#include "power/log/measurement_log.h"
#include "power/panel/power_parts.h"
#include "power/panel/read_outs.h"
#include "power/run/auto_progress.h"
#include "power/run/function_switches.h"
#include "power/run/output.h"
#include "power/run/step_start.h"
#include "serial/port.h"

#include <optional>

namespace zps {

class ReplyHandler {
  public:
    // Who is told of what a reply says.
    struct Surround {
        serial::Port& Port;
        AwaitedAnswer& Answer;
        Output& Out;
        History& Happened;
        StepStart& Start;
        Polling& Polls;
        LinkQuality& Quality;
        FunctionSwitches& Functions;
        ReadOuts& Shown;
        MeasurementLog& Log;
        AutoProgress& Progress;
    };
    ReplyHandler(PowerParts& parts, const Surround& around) : Parts(parts), Around(around) {}

    // The receive event: gathers and judges one reply, shows it, re-arms the timers.
    void comPOWER_OnComm();

  private:
    // Shows a good data reply; only one that is `present` tells what the output gives. Returns the
    // message that the operator must see, if any; all state is settled by then.
    std::optional<Message> DecodeDataReply(const Bytes& reply, bool present);
    // What the supply reports of an output that the panel has not switched on.
    void HeedOutput(bool reportedOn);
    Message EndOfOutput(std::uint8_t code);
    std::optional<Message> Fault(std::uint8_t code);
    void Refused();
    void TakeReadBack(const ReadBack& values);
    void RearmTimers();
    void FaultReset();

    PowerParts& Parts;
    Surround Around;
    bool FaultResetPending = false;  // a fault is to be reset once its message has been answered
};

}  // namespace zps
