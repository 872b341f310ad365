// What the main window remembers beside the shared state.
#pragma once

#include <cstdint>

namespace zps {

struct PowerState {
    // Values of RunPhase: what the next handled reply starts.
    static constexpr std::int16_t PhaseIdle = 0;
    static constexpr std::int16_t PhaseStatusPoll = 1;   // the one-shot status poll
    static constexpr std::int16_t PhaseStepStart = 100;  // the step start timer

    bool OutputOn = false;  // the output is believed on; polling goes on only while it is set
    bool AutoOn = false;
    bool OcpOn = false;
    bool VsenseOn = false;
    bool RemoteOn = false;  // the remote button was last pressed to remote

    std::int16_t RunPhase = PhaseIdle;
    bool FaultResetPending = false;  // a fault is to be reset once its message has been answered
    int Faults = 0;                  // faults that the supply has reported
    std::int32_t NoReplyCount = 0;   // polls without any reply in the present output period
    bool Switching = false;          // a switch's click is still being worked on
    std::int16_t CurStep = 0;        // the step selected on the supply
    bool RefocusPending = false;     // the focus is on its way back to a field in error
};

}  // namespace zps
