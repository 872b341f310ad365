// Where the samples of the chart stand, and what is written at its axes.
#pragma once

#include "power/log/chart_table.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>
#include <utility>
#include <vector>

namespace zps {

// Both value axes have as many steps, so that one grid fits both.
constexpr int ValueSteps = 4;

// The top of a value axis that has been `top` (0: never drawn) and whose highest value is now
// `highest`, not below 0: ValueSteps round steps, the highest value times `room` or more. An axis
// that still fits is left alone, also while the value wavers about a limit.
double NextTop(double top, double highest, double room);

// What stands at the steps of an axis from 0 to `top`, all with the decimals that they need.
std::array<std::string, ValueSteps + 1> StepLabels(double top);

// The time axis. A place is counted in seconds; where a view spans runs, each counts from the
// place of its own start, a little behind the run before.
struct TimeAxis {
    struct Tick {
        double Place;
        std::int64_t Step;  // counted from the start of the run; every other one has an even number
        std::string Label;  // seconds of the run

        bool operator==(const Tick&) const = default;
    };

    std::array<double, ChartRows> Places;  // NaN where the table has a gap
    double Low;
    double High;
    std::vector<Tick> Ticks;
    std::vector<double> Breaks;  // between two runs
    // Between two samples of a run that are further apart than what is integrated: nobody knows
    // what was there.
    std::vector<double> Silences;
};
// From one round time to another, with a step to spare: the axis moves on by steps, and stands
// still in between.
TimeAxis LayOutTimes(const ChartTable& table);

// Every how many ticks can have their label of `labelWidth`, the ticks being `distance` apart: 1,
// 2, 4 and so on. Both in px.
int LabelEvery(double distance, double labelWidth);

// The row whose sample stands nearest to `place`; none where there is no sample.
std::optional<int> NearestRow(const TimeAxis& axis, double place);

// Two heights (0 to 1) of texts, moved apart to `least` and not below half of it.
std::pair<double, double> Apart(double upper, double lower, double least);

}  // namespace zps
