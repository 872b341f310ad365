// What the main window does with a reply.
#pragma once

#include "power/log/measurement_log.h"
#include "power/panel/power_parts.h"
#include "power/steps/edit_lock.h"
#include "serial/port.h"

#include <optional>

namespace zps {

class ReplyHandler {
  public:
    ReplyHandler(PowerParts& parts, EditLock& lock, MeasurementLog& log, serial::Port& port)
        : Parts(parts), Lock(lock), Log(log), Port(port) {}

    // The receive event: gathers and judges one reply, shows it, re-arms the timers.
    void comPOWER_OnComm();

    // When the last reply was handled.
    serial::Clock::time_point LastReply() const { return Handled; }

  private:
    // Shows a good data reply. Returns the message that the operator must see, if any; all state is
    // settled by then.
    std::optional<Message> DecodeDataReply(const Bytes& reply);
    Message EndOfOutput(std::uint8_t code);
    std::optional<Message> Fault(std::uint8_t code);
    void OutputIsOff();
    void TakeReadBack(const ReadBack& values);
    void CountBadData(const Bytes& reply);
    void RearmTimers();
    void FaultReset();

    PowerParts& Parts;
    EditLock& Lock;
    MeasurementLog& Log;
    serial::Port& Port;
    serial::Clock::time_point Handled = serial::Clock::now();
};

}  // namespace zps
