#include "power/log/chart_axes.h"

#include "power/log/range_sums.h"
#include "source/numbers.h"

#include <algorithm>
#include <cmath>
#include <initializer_list>
#include <limits>

namespace zps {

namespace {

constexpr double LeastTimeStep = 0.5;  // s
constexpr int MostTimeSteps = 8;
constexpr double UsualSpan = 3.3;  // s that twenty samples take while every poll is answered
constexpr double RunGap = 0.5;     // s
constexpr double Stray = 1e-9;     // what sums of floating point leave
constexpr double LongestLine = RangeSums::LongestGap / 100.0 + Stray;  // s

// The least of `steps` times a power of ten that is `value` or more; `value` is above 0.
double RoundedUp(double value, std::initializer_list<double> steps) {
    const double decade = std::pow(10, std::floor(std::log10(value)));
    for (const double step : steps) {
        if (value <= step * decade * (1 + Stray)) return step * decade;
    }
    return 10 * decade;
}

int DecimalsOf(double step) {
    int decimals = 0;
    while (decimals < 6 && std::abs(step - std::round(step)) > 1e-6 * step) {
        step *= 10;
        ++decimals;
    }
    return decimals;
}

double TopFor(double highest) {
    return RoundedUp(highest / ValueSteps, {1, 1.5, 2, 2.5, 3, 4, 5, 6, 8}) * ValueSteps;
}

double TimeStepFor(double span) {
    if (span <= LeastTimeStep * MostTimeSteps) return LeastTimeStep;
    return RoundedUp(span / MostTimeSteps, {1, 2, 5});
}

// A part of the view that is of one run.
struct Stretch {
    double Offset;  // from the run's seconds to places
    double First;   // s of the run
    double Last;
};

std::vector<Stretch> Place(const ChartTable& table, TimeAxis& axis) {
    std::vector<Stretch> stretches;
    std::optional<std::uint32_t> run;
    for (std::size_t row = 0; row < table.size(); ++row) {
        const ChartPoint& point = table[row];
        axis.Places[row] = std::numeric_limits<double>::quiet_NaN();
        if (point.IsGap()) continue;
        const double seconds = point.Seconds();
        if (point.Run != run) {
            const double end = run ? stretches.back().Last + stretches.back().Offset : 0;
            if (run) axis.Breaks.push_back(end + RunGap / 2);
            stretches.push_back({run ? end + RunGap - seconds : 0, seconds, seconds});
            run = point.Run;
        }
        if (seconds - stretches.back().Last > LongestLine)
            axis.Silences.push_back((seconds + stretches.back().Last) / 2 +
                                    stretches.back().Offset);
        stretches.back().Last = seconds;
        axis.Places[row] = seconds + stretches.back().Offset;
    }
    return stretches;
}

void AddTicks(TimeAxis& axis, double step, double offset, double from, double to) {
    const int decimals = DecimalsOf(step);
    for (auto number = std::llround(std::ceil(from / step - Stray));; ++number) {
        const double seconds = static_cast<double>(number) * step;
        if (seconds > to + Stray) return;
        const bool free =
            axis.Ticks.empty() || seconds + offset > axis.Ticks.back().Place + step / 2;
        if (free) axis.Ticks.push_back({seconds + offset, number, FormatFixed(seconds, decimals)});
    }
}

}  // namespace

double NextTop(double top, double highest, double room) {
    constexpr double waver = 0.05;
    if (highest <= 0) return 1;
    const bool fits = highest * (room - waver) <= top;
    return fits && top <= TopFor(highest * (room + waver)) ? top : TopFor(highest * room);
}

std::array<std::string, ValueSteps + 1> StepLabels(double top) {
    const double step = top / ValueSteps;
    std::array<std::string, ValueSteps + 1> labels;
    for (int k = 0; auto& label : labels) label = FormatFixed(step * k++, DecimalsOf(step));
    labels[0] = "0";
    return labels;
}

TimeAxis LayOutTimes(const ChartTable& table) {
    TimeAxis axis{};
    std::vector<Stretch> stretches = Place(table, axis);
    if (stretches.empty()) stretches.push_back({});
    const double first = stretches.front().First;
    const double span = stretches.back().Last + stretches.back().Offset - first;
    const double step = TimeStepFor(span);
    axis.Low = std::floor(first / step + Stray) * step;
    axis.High = axis.Low + (std::ceil(std::max(span, UsualSpan) / step - Stray) + 1) * step;
    for (const Stretch& stretch : stretches) {
        const bool begins = &stretch == &stretches.front();
        const bool ends = &stretch == &stretches.back();
        AddTicks(axis, step, stretch.Offset, begins ? axis.Low : stretch.First,
                 ends ? axis.High - stretch.Offset : stretch.Last);
    }
    return axis;
}

int LabelEvery(double distance, double labelWidth) {
    int every = 1;
    while (every < 2 * MostTimeSteps && distance * every < labelWidth) every *= 2;
    return every;
}

std::optional<int> NearestRow(const TimeAxis& axis, double place) {
    std::optional<int> nearest;
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t row = 0; row < axis.Places.size(); ++row) {
        const double distance = std::abs(axis.Places[row] - place);
        if (!(distance < least)) continue;  // nor where there is no sample
        least = distance;
        nearest = static_cast<int>(row);
    }
    return nearest;
}

std::pair<double, double> Apart(double upper, double lower, double least) {
    if (upper < lower) {
        const auto [high, low] = Apart(lower, upper, least);
        return {low, high};
    }
    const double missing = std::max(0.0, least - (upper - lower));
    const double low = std::max(lower - missing / 2, least / 2);
    return {std::max(upper + missing / 2, low + least), low};
}

}  // namespace zps
