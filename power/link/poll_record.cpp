#include "power/link/poll_record.h"

#include <algorithm>
#include <numeric>

namespace zps {

using namespace std::chrono_literals;

namespace {

using Span = PollCounts::Span;

// The least time that so many in a hundred of the answers did not take longer than; `responses`
// holds their number for each millisecond.
template <class Responses>
std::optional<Span> Within(const Responses& responses, int percent) {
    const auto all = std::accumulate(responses.begin(), responses.end(), std::int64_t{0});
    if (all == 0) return std::nullopt;
    std::int64_t left = (all * percent + 99) / 100;
    Span took{0};
    for (const int here : responses) {
        left -= here;
        if (left <= 0) break;
        ++took;
    }
    return took;
}

}  // namespace

int PollCounts::Asked() const {
    return std::accumulate(Count.begin(), Count.end(), 0);
}

void PollRecord::Restart() {
    RunFrom = Total;
    Count = {};
    Responses = {};
    LastTook.reset();
}

void PollRecord::Asked(Moment now) {
    if (OpenSince()) Close(Fate::Silent, 0ms);
    Polls.at(Total++ % Remembered) = {now};
}

std::optional<PollRecord::Moment> PollRecord::OpenSince() const {
    if (Total == 0 || Newest().Is != Fate::Open) return std::nullopt;
    return Newest().At;
}

void PollRecord::Became(Fate fate, Moment now) {
    const auto asked = OpenSince();
    if (!asked) return;
    const auto took = std::chrono::duration_cast<Span>(now - *asked);
    Close(fate, took);
    if (fate != Fate::Answered || !NewestInRun()) return;
    LastTook = took;
    ++Responses.at(static_cast<std::size_t>(std::clamp(took, 0ms, LatestAnswer).count()));
}

void PollRecord::Overtaken(Moment now) {
    const auto asked = OpenSince();
    Became(asked && now - *asked > LatestAnswer ? Fate::Silent : Fate::Overtaken, now);
}

void PollRecord::Close(Fate fate, Span took) {
    Poll& newest = Polls.at((Total - 1) % Remembered);
    newest.Took = took;
    newest.Is = fate;
    if (NewestInRun()) ++Count.at(static_cast<std::size_t>(fate));
}

PollCounts PollRecord::LastMinute(Moment now) const {
    PollCounts minute;
    decltype(Responses) responses{};
    const std::size_t oldest = Total - std::min(Total, Remembered);
    for (std::size_t number = Total; number-- > oldest;) {
        const Poll& poll = Polls[number % Remembered];
        if (now - poll.At > 1min) break;
        ++minute.Count.at(static_cast<std::size_t>(poll.Is));
        if (poll.Is != Fate::Answered) continue;
        if (!minute.Last) minute.Last = poll.Took;
        ++responses.at(static_cast<std::size_t>(std::clamp(poll.Took, 0ms, LatestAnswer).count()));
    }
    minute.Median = Within(responses, 50);
    minute.Within99 = Within(responses, 99);
    return minute;
}

PollCounts PollRecord::All() const {
    PollCounts all{Count, LastTook, Within(Responses, 50), Within(Responses, 99)};
    if (NewestInRun() && OpenSince()) ++all.Count.at(static_cast<std::size_t>(Fate::Open));
    return all;
}

}  // namespace zps
