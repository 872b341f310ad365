#include "power/run/auto_progress.h"

#include <algorithm>
#include <numeric>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto SurelyReported = 500ms;  // three polls
}  // namespace

void AutoProgress::Begin(std::vector<Stage> stages, int cycles, Time now) {
    *this = {};
    Stages = std::move(stages);
    CycleCount = std::max(cycles, 0);
    Started = Entered = LastReport = now;
    if (Stages.empty()) return;
    const auto shorter = [](const Stage& one, const Stage& other) {
        return one.Lasts < other.Lasts;
    };
    Shortest = std::min_element(Stages.begin(), Stages.end(), shorter)->Lasts;
    const auto alike = [](const Stage& one, const Stage& next) { return one.Step == next.Step; };
    const bool neighbours =
        std::adjacent_find(Stages.begin(), Stages.end(), alike) != Stages.end() ||
        alike(Stages.back(), Stages.front());
    Countable = !neighbours && Shortest >= SurelyReported;
}

void AutoProgress::Reported(int step, Time now) {
    if (!Running()) return;
    if (now - LastReport >= Shortest) Countable = false;
    LastReport = now;
    if (!Seen) {  // until then the supply may still be at the step that was selected
        Seen = step == Stages.front().Step;
        if (Seen) Entered = now;
        return;
    }
    if (step == Stages[Place].Step) return;
    const std::size_t count = Stages.size();
    for (std::size_t ahead = 1; ahead < count; ++ahead) {
        const std::size_t place = (Place + ahead) % count;
        if (Stages[place].Step != step) continue;
        if (place < Place) ++CycleNow;
        Place = place;
        Entered = now;
        return;
    }
}

std::optional<int> AutoProgress::Cycle() const {
    if (!Running() || !Countable || !Seen) return std::nullopt;
    return CycleNow;
}

AutoProgress::Span AutoProgress::LeftFrom(std::size_t place) const {
    return std::accumulate(Stages.begin() + static_cast<std::ptrdiff_t>(place), Stages.end(),
                           Span{}, [](Span sum, const Stage& stage) { return sum + stage.Lasts; });
}

std::optional<AutoProgress::Time> AutoProgress::EstimatedEnd() const {
    if (!Running() || CycleCount == 0) return std::nullopt;
    const Span cycle = LeftFrom(0);
    if (!Countable) return Started + cycle * CycleCount;
    return Entered + LeftFrom(Place) + cycle * std::max(CycleCount - CycleNow, 0);
}

}  // namespace zps
