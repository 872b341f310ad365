// What is written along the time axis of the whole run, and where its steps change.
#pragma once

#include "power/log/run_curve.h"

#include <string>
#include <vector>

namespace zps {

struct CurveTick {
    double Place;
    std::string Label;  // empty where there is no room for it

    bool operator==(const CurveTick&) const = default;
};

// From one place to another, `pixels` px apart; a label needs `room` px, with the space beside it.
struct CurveStretch {
    double Low;
    double High;
    double Pixels;
    double Room;

    double SecondsFor(double pixels) const { return pixels * (High - Low) / Pixels; }
};

// "12.5", from ten minutes on "0:12:05", below a second with as many decimals as `step` needs.
std::string TimeLabel(double seconds, double step, bool clock);
// Whether times up to `seconds` are written in hours, minutes and seconds.
bool WrittenAsClock(double seconds);

// Round times of the runs, each run's from its own start.
std::vector<CurveTick> TimeTicks(const RunCurve& curve, const CurveStretch& seen);
// Where runs begin and where their steps change, with the step that begins there. Changes that
// can't be told apart are one, that to the last of their steps. Where there is no room for all
// numbers, the steps that last longest have theirs.
std::vector<CurveTick> StepTicks(const RunCurve& curve, const CurveStretch& seen);
// Between two runs.
std::vector<double> RunBreaks(const RunCurve& curve, const CurveStretch& seen);

}  // namespace zps
