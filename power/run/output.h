// Whether the output is on, as far as the panel knows, and what has spoken against it.
#pragma once

#include "power/panel/output_state.h"

#include <functional>
#include <utility>

namespace zps {

class Output {
  public:
    // The output is on, and shown so; only then the supply is polled and a reading is logged.
    bool On() const { return State == OutputState::On; }
    // The same, and what more is known where it is not on.
    OutputState Known() const { return State; }
    // What the supply has said against switching on since the start.
    struct Objections {
        int Faults = 0;     // that it has reported
        int Refusals = 0;   // of frames
        int LastFault = 0;  // the code of the last fault
    };
    const Objections& Objected() const { return Objection; }

    // The operator switches it on.
    void WentOn();
    // It is off, or taken for off: switched off, reported by the supply.
    void WentOff();
    // It has gone with remote control: switched by nobody, but the panel has no say in it.
    void LeftToFrontPanel();
    // The supply is asked for its status while the output is not on: the next report is no older
    // than the last switching.
    void Asked();
    // The supply has reported the output as on or off and no fault. While it is on this says
    // nothing.
    void Reported(bool on);
    // The supply has reported a fault, which switches it off.
    void Tripped(int faultCode);
    // The supply has refused a frame.
    void Refused() { ++Objection.Refusals; }

    // Called after each switching.
    void OnChange(std::function<void()> told) { Told = std::move(told); }
    // Called when a report has changed what is known.
    void OnReport(std::function<void()> told) { ToldReport = std::move(told); }

  private:
    void Become(OutputState state);

    OutputState State = OutputState::Off;
    int ReportsOn = 0;  // in a row since the last switching that tell of an output that is on
    Objections Objection;
    std::function<void()> Told = [] {};
    std::function<void()> ToldReport = [] {};
};

}  // namespace zps
