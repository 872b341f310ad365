// The output stage: what a supply puts on a resistive load, and what makes it trip.
#pragma once

#include "simulator/wire.h"

namespace zps::simulator {

// Error codes of the data reply. The codes for an output that fails to switch off (1 and 7) never
// come from a resistive load; Supply::Trip makes them.
inline constexpr int MaxOverVoltage = 3;
inline constexpr int MaxOverCurrent = 4;
inline constexpr int SetOverVoltage = 5;
inline constexpr int SetOverCurrent = 6;

// A voltage that moves in a straight line and then stays.
struct Ramp {
    double From = 0;  // volts
    double To = 0;
    Time Start{};
    std::chrono::microseconds Length{0};

    double At(Time now) const;
};

struct WorkingPoint {
    double Volts = 0;
    double Amps = 0;
    bool ConstantCurrent = false;
};

// Where a supply that is set to `volts` and `amps` settles on a load of `ohms`.
WorkingPoint Settle(double volts, double amps, double ohms);

struct TripLimits {
    double MaxVolts;  // what the supply can stand at all
    double MaxAmps;
    double OverVolts;            // the over-voltage limit that was set
    bool OverCurrentProtection;  // whether constant current counts as a fault
};

// The error code that `point` causes, 0 if it is within the limits.
int TripCodeOf(const WorkingPoint& point, const TripLimits& limits);

}  // namespace zps::simulator
