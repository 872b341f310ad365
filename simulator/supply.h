// One simulated power supply: what it remembers, what it puts out and what it answers.
//
// Pure logic: no thread, no input or output, and the time is passed in. Times must not run
// backwards; an earlier one counts as the latest one seen.
#pragma once

#include "simulator/command.h"
#include "simulator/output.h"
#include "simulator/sequence.h"
#include "simulator/splitter.h"

#include <array>
#include <optional>

namespace zps::simulator {

// The code in byte 4 of the data reply after an automatic run has come to its end. The fault bit
// stays clear with it.
inline constexpr int AutoRunEnded = 16;

// The share of its rating up to which a supply can be driven, and its over-voltage limit at start.
inline constexpr double HeadroomShare = 1.09;

struct SupplyOptions {
    int Address = 1;     // 0 to 255
    double Volts = 150;  // ratings, above 0 and up to 6000
    double Amps = 10;
    double LoadOhms = 100;  // above 0; infinity is no load at all
};

// One step of the memory, as the counts of the wire and as what they mean.
struct StepValues {
    std::uint16_t VoltRaw = 0;
    std::uint16_t CurrRaw = 0;
    std::uint16_t OvpRaw = 0;
    std::array<std::uint8_t, 5> TimeRaw{};   // seconds (2), milliseconds (2), 10 us
    std::array<std::uint8_t, 3> SlopeRaw{};  // milliseconds (2), 10 us
    double Volts = 0;
    double Amps = 0;
    double OvpVolts = 0;
    std::chrono::microseconds StepTime{0};
    std::chrono::microseconds Slope{0};
};

struct SupplyState {
    SupplyOptions Options;  // with the present load
    int VoltScale = 0;      // wire counts per volt
    int CurrScale = 0;      // wire counts per ampere

    bool Remote = false;
    bool Output = false;
    bool Auto = false;
    bool Sensing = false;
    bool OverCurrentProtection = false;
    bool Fault = false;
    int Code = 0;  // error code, AutoRunEnded or 0

    WorkingPoint Out;  // all zero while the output is off
    std::array<StepValues, StepCount> Steps{};
    int SelectedStep = 0;  // what set commands change
    int ActiveStep = 0;    // what the output follows: the selected step, or the one that runs

    Bytes Sequence;  // step numbers in order
    int Count = 0;   // cycles
    bool Running = false;
    int CyclesDone = 0;
};

class Supply {
  public:
    // Starts in local with its output off, every step at 0 V, the rated current, no time, no slope
    // and an over-voltage limit of 109 % of the rating. Throws std::invalid_argument where an
    // option is out of its range.
    explicit Supply(const SupplyOptions& options);

    int Address() const { return Now.Options.Address; }

    // Takes a frame that was complete at `now`, carries it out and returns the reply. There is none
    // to noise and to frames for another address. NAK answers a broken frame, an unknown command, a
    // value out of range, and every command in local; such a frame changes nothing.
    std::optional<Bytes> Answer(const Frame& frame, Time now);

    // Brings the output, its trips and the automatic run up to `now`.
    //
    // A run goes on while output and auto mode are on. Each step lasts its step time, but at least
    // its slope and 1 ms, so a step without a time is passed through as soon as it is reached.
    // After the last cycle the output goes off with AutoRunEnded.
    void Advance(Time now);

    // The state as of the last call that took a time.
    const SupplyState& State() const { return Now; }

    // Throws std::invalid_argument unless `ohms` is above 0.
    void SetLoad(double ohms, Time now);
    // Switches the output off with a fault, as if `errorCode` had come up. Throws
    // std::invalid_argument outside 1 to 255.
    void Trip(int errorCode, Time now);

  private:
    Bytes ShortReply(std::uint8_t code) const;
    Bytes DataReply() const;
    std::uint8_t StatusBits() const;

    bool CarryOut(const Frame& frame);
    void Apply(const Command& command);
    void SetValue(StepValues& step, const Command& command) const;
    void SwitchOutput(bool on);

    void FollowSettings();
    void EnterStep(Time at);
    void MoveToTarget(Time at);
    void SettleOutput(Time at);
    TripLimits Limits() const;

    SupplyState Now;
    Ramp SetVolts;
    AutoRun Run;
    Time Latest{};
};

}  // namespace zps::simulator
