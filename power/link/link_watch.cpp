#include "power/link/link_watch.h"

#include <algorithm>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {

constexpr auto LookInterval = 150ms;
constexpr auto Step = 200ms;
constexpr auto LateFrom = 700ms;
constexpr auto GoneFrom = 3s;
constexpr auto Coarse = 3s;

std::chrono::milliseconds RoundedUp(std::chrono::milliseconds age) {
    return std::max<std::int64_t>((age + Step - 1ms) / Step, 1) * Step;
}

}  // namespace

LinkWatch::LinkWatch(const LinkQuality& quality, Timekeeper& time)
    : Quality(quality), tmrLINK(time.MakeTicker("tmrLINK", LookInterval)) {
    tmrLINK->OnTick([this] { Look(); });
}

void LinkWatch::Look() {
    const View now = ViewNow();
    tmrLINK->SetEnabled(now.State != Pulse::NotPolled);
    if (now == Shown) return;
    const View before = std::exchange(Shown, now);
    Told();
    if (now.State == before.State) return;
    if (now.State == Pulse::Gone) ToldLost();
    const bool polled = now.State != Pulse::NotPolled;
    if (before.State == Pulse::Gone && polled)
        ToldBack(std::chrono::duration_cast<std::chrono::seconds>(before.Age));
}

LinkWatch::View LinkWatch::ViewNow() const {
    const auto age = Quality.ReadingAge();
    if (!age) return {};
    const auto shown = *age < Coarse ? RoundedUp(*age) : *age - *age % 1s;
    if (Quality.UnansweredFor().value_or(0ms) >= GoneFrom) return {Pulse::Gone, shown};
    if (Quality.Polled().Answered == 0) return {Pulse::Awaited};
    if (*age < LateFrom) return {Pulse::Answers, shown};
    return {Quality.SinceAsked() > LinkQuality::LongestGap ? Pulse::Paused : Pulse::Late, shown};
}

}  // namespace zps
