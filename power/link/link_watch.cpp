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
    if (now.State == Pulse::Gone && !std::exchange(Lost, true)) ToldLost();
    if (now.State == Pulse::NotPolled) Lost = false;
    if (now.State == Pulse::Answers && std::exchange(Lost, false))
        ToldBack(std::chrono::duration_cast<std::chrono::seconds>(before.Age));
}

LinkWatch::View LinkWatch::ViewNow() const {
    const auto age = Quality.ReadingAge();
    if (!age) return {};
    const auto shown = *age < Coarse ? RoundedUp(*age) : *age - *age % 1s;
    const bool answered = Quality.HasReading();
    if (answered && *age < LateFrom) return {Pulse::Answers, shown};
    // While nothing is asked, the answer to the last poll may be there and wait to be handled.
    const bool asks = Quality.SinceAsked() <= LinkQuality::LongestGap;
    const bool gone = asks && Quality.UnansweredFor().value_or(0ms) >= GoneFrom;
    if (gone || Lost) return {asks ? Pulse::Gone : Pulse::Paused, shown};
    if (!answered) return {Pulse::Awaited};
    return {asks ? Pulse::Late : Pulse::Paused, shown};
}

}  // namespace zps
