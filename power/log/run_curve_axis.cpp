#include "power/log/run_curve_axis.h"

#include "source/numbers.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <functional>
#include <iterator>
#include <numeric>
#include <set>

namespace zps {

namespace {

constexpr double Minute = 60;
constexpr double Hour = 60 * Minute;
constexpr double Day = 24 * Hour;
constexpr std::array Steps{0.1,         0.2,         0.5,         1.0,     2.0,        5.0,
                           10.0,        15.0,        30.0,        Minute,  2 * Minute, 5 * Minute,
                           10 * Minute, 15 * Minute, 30 * Minute, Hour,    2 * Hour,   3 * Hour,
                           6 * Hour,    12 * Hour,   Day,         2 * Day, 5 * Day,    10 * Day,
                           20 * Day,    50 * Day};
constexpr double TellApart = 6;  // px
// As wide as a step's number: written centred at its tick, the number then stands behind it.
const std::string Behind = "\u2007\u2007\u200a";
constexpr double Stray = 1e-9;  // what sums of floating point leave

double StepFor(double least) {
    const auto* const step = std::lower_bound(Steps.begin(), Steps.end(), least);
    return step == Steps.end() ? Steps.back() : *step;
}

// The seconds of the run at the end of what is seen.
double LastSeconds(const RunCurve& curve, const CurveStretch& seen) {
    return seen.High - curve.Runs()[curve.RunAt(seen.High)].Offset;
}

struct StepBegun {
    double Place;
    int Step;
    double Lasts;  // s, within what is seen
};

// Of those that can't be told apart the last, which is the only one that may be seen to last.
std::vector<StepBegun> StepsBegun(const RunCurve& curve, const CurveStretch& seen) {
    std::vector<StepBegun> begun;
    const double apart = seen.SecondsFor(TellApart);
    std::size_t index = curve.IndexAt(seen.Low);
    while ((index = curve.NextBeginning(index)) < curve.Count()) {
        const double place = curve.PlaceOf(index);
        if (place > seen.High) break;
        if (!begun.empty()) begun.back().Lasts = place - begun.back().Place;
        index = curve.IndexAt(place + apart, index + 1);
        begun.push_back({place, curve.StepOf(index - 1), std::min(seen.High, curve.End()) - place});
    }
    return begun;
}

}  // namespace

bool WrittenAsClock(double seconds) {
    return seconds >= 10 * Minute;
}

std::string TimeLabel(double seconds, double step, bool clock) {
    const int decimals = step < 1 ? 1 : 0;
    if (!clock) return FormatFixed(seconds, decimals);
    const auto whole = static_cast<long long>(seconds + Stray);
    const auto two = [](long long number) {
        return std::string(number < 10 ? ":0" : ":") + std::to_string(number);
    };
    std::string text = std::to_string(whole / 3600) + two(whole / 60 % 60) + two(whole % 60);
    if (decimals == 0) return text;
    return text + FormatFixed(seconds - static_cast<double>(whole), decimals).substr(1);
}

std::vector<CurveTick> TimeTicks(const RunCurve& curve, const CurveStretch& seen) {
    std::vector<CurveTick> ticks;
    const double apart = seen.SecondsFor(seen.Room);
    const double step = StepFor(apart);
    const auto& runs = curve.Runs();
    const bool clock = !runs.empty() && WrittenAsClock(LastSeconds(curve, seen));
    std::size_t run = runs.empty() ? 0 : curve.RunAt(seen.Low);
    double from = seen.Low;
    do {
        const double offset = runs.empty() ? 0 : runs[run].Offset;
        const bool last = run + 1 >= runs.size();
        const double to = last ? seen.High : std::min(seen.High, curve.EndOf(run));
        from = std::max(from, offset);
        for (auto number = std::llround(std::ceil((from - offset) / step - Stray));; ++number) {
            const double seconds = static_cast<double>(number) * step;
            const double place = seconds + offset;
            if (place > to + Stray) break;
            ticks.push_back({place, TimeLabel(seconds, step, clock)});
            from = place + apart;
        }
        if (last) break;
        run = std::max(run + 1, curve.RunAt(from));
    } while (runs[run].Offset < seen.High);
    return ticks;
}

std::vector<CurveTick> StepTicks(const RunCurve& curve, const CurveStretch& seen) {
    const std::vector<StepBegun> begun = StepsBegun(curve, seen);
    std::vector<std::size_t> longestFirst(begun.size());
    std::iota(longestFirst.begin(), longestFirst.end(), std::size_t{0});
    std::ranges::stable_sort(longestFirst, std::ranges::greater(),
                             [&begun](std::size_t k) { return begun[k].Lasts; });
    std::vector<CurveTick> ticks;
    for (const StepBegun& step : begun) ticks.push_back({step.Place, {}});
    const double room = seen.SecondsFor(seen.Room);
    std::set<double> labelled;
    for (const std::size_t k : longestFirst) {
        const double place = begun[k].Place;
        const auto behind = labelled.lower_bound(place);
        if (behind != labelled.end() && *behind < place + room) continue;
        if (behind != labelled.begin() && *std::prev(behind) > place - room) continue;
        labelled.insert(behind, place);
        ticks[k].Label = Behind + FormatStep(begun[k].Step);
    }
    return ticks;
}

std::vector<double> RunBreaks(const RunCurve& curve, const CurveStretch& seen) {
    std::vector<double> breaks;
    const auto& runs = curve.Runs();
    if (runs.empty()) return breaks;
    const double apart = seen.SecondsFor(TellApart);
    std::size_t run = curve.RunAt(seen.Low);
    while (run < runs.size()) {
        const double place = curve.PlaceOf(runs[run].First);
        if (place > seen.High) break;
        if (run > 0 && place >= seen.Low) breaks.push_back((curve.EndOf(run - 1) + place) / 2);
        run = std::max(run + 1, curve.RunAt(place + apart));
    }
    return breaks;
}

}  // namespace zps
