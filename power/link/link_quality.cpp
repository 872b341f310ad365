#include "power/link/link_quality.h"

#include <utility>

namespace zps {

LinkQuality::LinkQuality(const Timekeeper& time, std::function<bool()> outputOn)
    : Time(time), OutputOn(std::move(outputOn)) {}

void LinkQuality::Restart() {
    Faults.fill(0);
    Polls.Restart();
}

void LinkQuality::OutputWentOn() {
    Begun = LastAsked = Time.Now();
    FreshAt.reset();
    UnansweredFrom.reset();
}

void LinkQuality::Asked() {
    const auto now = Time.Now();
    Polls.Asked(now);
    if (!UnansweredFrom || SinceAsked() > LongestGap) UnansweredFrom = now;
    LastAsked = now;
}

void LinkQuality::Overtaken() {
    const auto open = Polls.OpenSince();
    if (!open) return;
    if (open == UnansweredFrom && Since(*open) <= LatestAnswer) UnansweredFrom.reset();
    Polls.Overtaken(Time.Now());
}

bool LinkQuality::Answered(Reply result, std::size_t length) {
    const auto asked = Polls.OpenSince();
    if (result != Reply::Data) {
        NoteFault(length);
        return false;
    }
    UnansweredFrom.reset();
    const bool late = asked && Since(*asked) > LatestAnswer;
    Polls.Became(late ? Fate::Late : Fate::Answered, Time.Now());
    if (!late) FreshAt = Time.Now();
    return !late;
}

void LinkQuality::NoteFault(std::size_t length) {
    const Fate fault = length == 0            ? Fate::Empty
                       : length == DataLength ? Fate::WrongHeader
                                              : Fate::WrongLength;
    auto& count = Faults.at(static_cast<std::size_t>(fault));
    count = count.value_or(0) + 1;
    Polls.Became(fault, Time.Now());
}

std::optional<LinkQuality::Span> LinkQuality::ReadingAge() const {
    if (!OutputOn()) return std::nullopt;
    return Since(FreshAt.value_or(Begun));
}

std::optional<LinkQuality::Span> LinkQuality::UnansweredFor() const {
    if (!UnansweredFrom) return std::nullopt;
    return Since(*UnansweredFrom);
}

LinkQuality::Span LinkQuality::Since(serial::Clock::time_point moment) const {
    return std::chrono::duration_cast<Span>(Time.Now() - moment);
}

}  // namespace zps
