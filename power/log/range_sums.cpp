#include "power/log/range_sums.h"

#include <algorithm>

namespace zps {

namespace {

void JoinSpread(Spread& all, const Spread& next) {
    all.Least = std::min(all.Least, next.Least);
    all.Most = std::max(all.Most, next.Most);
    all.Sum += next.Sum;
}

Spread OfOne(double value) {
    return {value, value, value};
}

}  // namespace

double WattsOf(const Sample& sample) {
    return static_cast<double>(sample.Volts) * static_cast<double>(sample.Amps);
}

RangeSums::RangeSums(const Sample& sample, std::uint32_t run)
    : Samples(1),
      Volts(OfOne(static_cast<double>(sample.Volts))),
      Amps(OfOne(static_cast<double>(sample.Amps))),
      Watts(OfOne(WattsOf(sample))),
      First(sample),
      Last(sample),
      FirstRun(run),
      LastRun(run) {}

void RangeSums::Join(const RangeSums& next) {
    if (next.Samples == 0) return;
    if (Samples == 0) {
        *this = next;
        return;
    }
    AmpSeconds += next.AmpSeconds;
    WattSeconds += next.WattSeconds;
    Integrated += next.Integrated;
    Skipped += next.Skipped;
    if (next.FirstRun == LastRun) {
        const std::uint32_t gap = next.First.Hundredths - Last.Hundredths;
        const double halfSeconds = gap / 200.0;
        if (gap <= LongestGap) {
            AmpSeconds += (static_cast<double>(Last.Amps) + static_cast<double>(next.First.Amps)) *
                          halfSeconds;
            WattSeconds += (WattsOf(Last) + WattsOf(next.First)) * halfSeconds;
        }
        (gap <= LongestGap ? Integrated : Skipped) += gap;
    }
    Samples += next.Samples;
    JoinSpread(Volts, next.Volts);
    JoinSpread(Amps, next.Amps);
    JoinSpread(Watts, next.Watts);
    Last = next.Last;
    LastRun = next.LastRun;
}

double RangeSums::Mean(const Spread& of) const {
    return Samples == 0 ? 0 : of.Sum / static_cast<double>(Samples);
}

}  // namespace zps
