#include "power/link/link_quality.h"

#include <algorithm>
#include <utility>

namespace zps {

LinkQuality::LinkQuality(const Timekeeper& time, std::function<bool()> outputOn)
    : Time(time), OutputOn(std::move(outputOn)) {}

void LinkQuality::Restart() {
    Faults.fill(0);
    AskedCount = 0;
    Taken = 0;
    AskedAt.reset();  // its answer would be one without a question
}

void LinkQuality::OutputWentOn() {
    Begun = LastAsked = Time.Now();
    FreshAt.reset();
    UnansweredFrom.reset();
}

void LinkQuality::Asked() {
    ++AskedCount;
    AskedAt = Time.Now();
    if (!UnansweredFrom || SinceAsked() > LongestGap) UnansweredFrom = AskedAt;
    LastAsked = *AskedAt;
}

bool LinkQuality::Answered(Reply result, std::size_t length) {
    const auto asked = std::exchange(AskedAt, std::nullopt);
    if (result != Reply::Data) {
        NoteFault(length);
        return false;
    }
    UnansweredFrom.reset();
    if (asked && Since(*asked) > LatestAnswer) return false;
    FreshAt = Time.Now();
    if (asked) Responses.at(Taken++ % Remembered) = Since(*asked);
    return true;
}

void LinkQuality::NoteFault(std::size_t length) {
    const Fault fault = length == 0            ? Fault::Nothing
                        : length == DataLength ? Fault::WrongHeader
                                               : Fault::WrongLength;
    auto& count = Faults.at(static_cast<std::size_t>(fault));
    count = count.value_or(0) + 1;
}

std::optional<int> LinkQuality::Count(Fault fault) const {
    return Faults.at(static_cast<std::size_t>(fault));
}

LinkQuality::Exchanges LinkQuality::Polled() const {
    Exchanges all{AskedCount, static_cast<int>(Taken), {}, Median()};
    if (Taken > 0) all.Last = Responses.at((Taken - 1) % Remembered);
    return all;
}

std::optional<LinkQuality::Span> LinkQuality::Median() const {
    if (Taken == 0) return std::nullopt;
    auto times = Responses;
    const auto end = times.begin() + static_cast<std::ptrdiff_t>(std::min(Taken, Remembered));
    const auto middle = times.begin() + (end - times.begin()) / 2;
    std::nth_element(times.begin(), middle, end);
    return *middle;
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
