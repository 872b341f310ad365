// Whether the output is on, as far as the panel knows, and what has spoken against it.
#pragma once

#include <functional>
#include <utility>

namespace zps {

class Output {
  public:
    // The output is on, and shown so; only then the supply is polled and a reading is logged.
    bool On() const { return OutputOn; }
    // What the supply has said against switching on since the start.
    struct Objections {
        int Faults = 0;     // that it has reported
        int Refusals = 0;   // of frames
        int LastFault = 0;  // the code of the last fault
    };
    const Objections& Objected() const { return Objection; }

    // The operator switches it on.
    void WentOn();
    // It is off, or taken for off: switched off, gone with remote control, reported by the supply.
    void WentOff();
    // The supply has reported a fault, which switches it off.
    void Tripped(int faultCode);
    // The supply has refused a frame.
    void Refused() { ++Objection.Refusals; }

    // Called after each switching.
    void OnChange(std::function<void()> told) { Told = std::move(told); }

  private:
    void Become(bool on);

    bool OutputOn = false;
    Objections Objection;
    std::function<void()> Told = [] {};
};

}  // namespace zps
