// What the samples of a range come to: extremes, sums, charge and energy.
#pragma once

#include "power/log/sample_store.h"

#include <cstddef>
#include <cstdint>

namespace zps {

// Of one quantity over the samples of a range, each counting the same.
struct Spread {
    double Least = 0;
    double Most = 0;
    double Sum = 0;
};

// Sums of adjoining ranges join to those of both, so that a range of any length is known from the
// sums of its parts. Charge and energy are integrated by the trapezoid rule between samples that
// are at most LongestGap apart; the time between others counts as skipped, and no time passes
// between two runs.
struct RangeSums {
    static constexpr std::uint32_t LongestGap = 100;  // hundredths of a second

    RangeSums() = default;
    // Of one sample; `run` as SampleStore::RunAt tells it.
    RangeSums(const Sample& sample, std::uint32_t run);

    // Adds the samples that follow on these.
    void Join(const RangeSums& next);

    // The mean of the samples; 0 where there are none.
    double Mean(const Spread& of) const;
    double AmpHours() const { return AmpSeconds / 3600; }
    double WattHours() const { return WattSeconds / 3600; }
    // From the first to the last sample, the times of several runs added up: what was integrated
    // and what was skipped. The time before the first sample and behind the last is in neither.
    double Seconds() const { return static_cast<double>(Integrated + Skipped) / 100; }
    // Of that, what charge and energy know nothing of.
    double SkippedSeconds() const { return static_cast<double>(Skipped) / 100; }

    std::size_t Samples = 0;  // nothing below says anything while there are none
    Spread Volts;
    Spread Amps;
    Spread Watts;
    double AmpSeconds = 0;
    double WattSeconds = 0;
    std::uint64_t Integrated = 0;  // hundredths of a second
    std::uint64_t Skipped = 0;     // the same
    Sample First{};
    Sample Last{};
    std::uint32_t FirstRun = 0;
    std::uint32_t LastRun = 0;
};

double WattsOf(const Sample& sample);

}  // namespace zps
