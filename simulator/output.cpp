#include "simulator/output.h"

namespace zps::simulator {

double Ramp::At(Time now) const {
    if (now >= Start + Length) return To;
    if (now <= Start) return From;
    const std::chrono::duration<double> passed = now - Start;
    return From + (To - From) * (passed / Length);
}

WorkingPoint Settle(double volts, double amps, double ohms) {
    if (volts > amps * ohms) return {amps * ohms, amps, true};
    return {volts, volts / ohms, false};
}

int TripCodeOf(const WorkingPoint& point, const TripLimits& limits) {
    if (point.Volts > limits.MaxVolts) return MaxOverVoltage;
    if (point.Amps > limits.MaxAmps) return MaxOverCurrent;
    if (point.Volts > limits.OverVolts) return SetOverVoltage;
    if (point.ConstantCurrent && limits.OverCurrentProtection) return SetOverCurrent;
    return 0;
}

}  // namespace zps::simulator
