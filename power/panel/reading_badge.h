// What the large numbers are: set, measured, measured before, or old.
#pragma once

#include <QString>

#include <chrono>
#include <cstdint>
#include <optional>

namespace zps {

// Where a number that is shown comes from.
enum class NumberFrom : std::uint8_t { StepTable, Reading };

// Everything that decides what may be said of the numbers.
struct ShownNumbers {
    bool RatingsKnown = false;
    bool OutputOn = false;  // believed on: the supply is polled
    NumberFrom Volt = NumberFrom::StepTable;
    NumberFrom Curr = NumberFrom::StepTable;
    // Since the last good data reply of the present output period, or since the output went on.
    // Empty while nothing is polled.
    std::optional<std::chrono::milliseconds> Age;
    bool Answered = false;  // a good data reply of the present output period has come
};

// A reading that is older is never shown as one that is measured.
inline constexpr std::chrono::milliseconds FreshFor{1000};

struct ReadingBadge {
    enum class Kind : std::uint8_t { Set, Measured, LastMeasured, NoAnswer, UnknownRatings };
    Kind Is = Kind::Set;
    QString Text;    // what stands on the badge
    QString Spoken;  // the same without what counts up, so that it is said once

    bool operator==(const ReadingBadge&) const = default;
};

ReadingBadge BadgeFor(const ShownNumbers& shown);

}  // namespace zps
