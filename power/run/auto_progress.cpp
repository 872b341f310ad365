#include "power/run/auto_progress.h"

#include <algorithm>
#include <numeric>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto ShortestWatched = 500ms;         // some three polls
constexpr auto LongestEstimate = 10 * 8766.0h;  // ten years
}  // namespace

void AutoProgress::Forget() {
    Sequence.clear();
    Cycles = 0;
    OutputSwitched(false, false);
}

void AutoProgress::SequenceRefused() {
    Sequence.clear();
    Times.clear();
    Watched = false;
    Estimate();
    Told();
}

void AutoProgress::CountRefused() {
    Cycles = 0;
    Estimate();
    Told();
}

void AutoProgress::OutputSwitched(bool on, bool automatic) {
    On = on;
    Running.reset();
    Times.clear();
    Watched = false;
    Place = 0;
    End.reset();
    if (on && automatic) Begin();
    Told();
}

void AutoProgress::Begin() {
    const bool held = std::all_of(Sequence.begin(), Sequence.end(),
                                  [this](int step) { return Table.StepFlag(step); });
    if (!held) return;
    for (const int step : Sequence) {  // a step lasts at least as long as its voltage moves
        Times.emplace_back(
            std::max(Table.Value(StepValue::Time, step), Table.Value(StepValue::Slope, step)));
    }
    Watched = CanBeWatched();
    Estimate();
}

// A round is seen only if two different steps of it are: each one that lasts is polled.
bool AutoProgress::CanBeWatched() const {
    std::optional<int> seen;
    for (std::size_t place = 0; place < Times.size(); ++place) {
        if (Times[place] < ShortestWatched) continue;
        if (seen.value_or(Sequence[place]) != Sequence[place]) return true;
        seen = Sequence[place];
    }
    return false;
}

void AutoProgress::Reported(int step) {
    if (!On || Running == step) return;
    if (Watched) Follow(step);
    Running = step;
    Told();
}

void AutoProgress::Follow(int step) {
    const std::size_t first = Running ? Place + 1 : Place;
    const auto at = [this](std::size_t place) { return Sequence[place % Sequence.size()]; };
    for (std::size_t place = first; place < first + Sequence.size(); ++place) {
        if (at(place) != step) continue;
        Place = place;
        Estimate();
        return;
    }
    Watched = false;  // the supply runs something else
    End.reset();
}

void AutoProgress::Estimate() {
    End.reset();
    if (Times.empty() || Cycles == 0) return;
    const std::size_t size = Times.size();
    const std::size_t done = Place / size;
    if (done >= static_cast<std::size_t>(Cycles)) return;
    const auto from = Times.begin() + static_cast<std::ptrdiff_t>(Place % size);
    const Seconds round = std::accumulate(Times.begin(), Times.end(), Seconds(0));
    const Seconds left = std::accumulate(from, Times.end(), Seconds(0)) +
                         round * static_cast<double>(static_cast<std::size_t>(Cycles) - done - 1);
    if (left > LongestEstimate) return;
    End = Time.Now() + std::chrono::duration_cast<serial::Clock::duration>(left);
}

std::optional<AutoProgress::Cycle> AutoProgress::RunningCycle() const {
    if (!Watched || !Running) return std::nullopt;
    const int now = static_cast<int>(Place / Sequence.size()) + 1;
    if (Cycles == 0) return Cycle{now, std::nullopt};
    if (now > Cycles) return std::nullopt;
    return Cycle{now, Cycles};
}

std::optional<serial::Clock::time_point> AutoProgress::EstimatedEnd() const {
    return End;
}

}  // namespace zps
