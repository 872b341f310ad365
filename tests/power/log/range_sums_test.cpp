#include "power/log/block_sums.h"

#include <gtest/gtest.h>

#include <cmath>
#include <numbers>
#include <random>
#include <vector>

namespace zps::tests {
namespace {

struct SummedStore {
    void Append(const Sample& sample, std::int32_t number) {
        Store.Append(sample, number);
        Sums.Appended();
    }
    SampleStore Store;
    BlockSums Sums{Store};
};

// Three runs whose answers jitter, come late and stay away, as a line with faults gives them.
class SumsOfRuns : public testing::Test, public SummedStore {
  protected:
    void SetUp() override {
        std::mt19937 random(7);
        const auto upTo = [&](std::uint32_t most) {
            return static_cast<std::uint32_t>(random() % (most + 1));
        };
        for (const int length : {3000, 1, 4500}) {
            std::uint32_t time = upTo(30);
            for (int number = 1; number <= length; ++number) {
                const std::uint32_t fate = upTo(99);
                time += fate == 0 ? 101 + upTo(900) : fate == 1 ? 100 : 14 + upTo(6);
                const auto volts = static_cast<float>(upTo(150'000)) / 1000;
                Append({volts, static_cast<float>(upTo(20'000)) / 10'000, time, 0, 3, 4}, number);
                Runs.push_back(length);
            }
        }
    }

    // Straight from the definition, in other units and another order.
    void ExpectAsCounted(std::size_t first, std::size_t last) {
        SCOPED_TRACE(std::to_string(first) + " to " + std::to_string(last));
        long double watts = 0, ampHours = 0, wattHours = 0, skipped = 0, most = 0, least = 1e9,
                    passed = 0;
        for (std::size_t k = last + 1; k-- > first;) {
            const Sample own = Store.At(k);
            const long double power = static_cast<long double>(own.Volts) * own.Amps;
            watts += power;
            most = std::max(most, static_cast<long double>(own.Amps));
            least = std::min(least, power);
            if (k == first || Runs[k - 1] != Runs[k]) continue;
            const Sample before = Store.At(k - 1);
            const long double seconds = (own.Hundredths - before.Hundredths) / 100.0L;
            passed += seconds;
            if (seconds > 1) skipped += seconds;
            if (seconds > 1) continue;
            ampHours += (own.Amps + static_cast<long double>(before.Amps)) / 2 * seconds / 3600;
            wattHours +=
                (power + static_cast<long double>(before.Volts) * before.Amps) / 2 * seconds / 3600;
        }
        const RangeSums sums = Sums.Over(first, last);
        const auto near = [](double value, long double wanted) {
            const auto exact = static_cast<double>(wanted);
            EXPECT_NEAR(value, exact, 1e-9 * std::abs(exact) + 1e-12);
        };
        EXPECT_EQ(sums.Samples, last - first + 1);
        near(sums.Mean(sums.Watts), watts / static_cast<long double>(last - first + 1));
        near(sums.Amps.Most, most);
        near(sums.Watts.Least, least);
        near(sums.AmpHours(), ampHours);
        near(sums.WattHours(), wattHours);
        near(sums.SkippedSeconds(), skipped);
        near(sums.Seconds(), passed);
        EXPECT_EQ(sums.Last.Hundredths, Store.At(last).Hundredths);
    }

    std::vector<int> Runs;  // of each sample
};

TEST_F(SumsOfRuns, OfAnyRangeAreThoseOfItsSamples) {
    const std::size_t count = Store.Count();
    for (const auto& [first, last] : {std::pair<std::size_t, std::size_t>{0, count - 1},
                                      {0, 0},
                                      {1023, 1024},
                                      {1024, 2047},
                                      {2999, 3001},
                                      {3000, 3000},
                                      {17, 6000}}) {
        ExpectAsCounted(first, last);
    }
    std::mt19937 random(11);
    for (int turn = 0; turn < 200; ++turn) {
        const std::size_t one = random() % count, other = random() % count;
        ExpectAsCounted(std::min(one, other), std::max(one, other));
    }
    EXPECT_EQ(Sums.Over(count - 2, count + 5000).Samples, 2U);
    EXPECT_EQ(Sums.Over(5, 4).Samples + Sums.Over(count, count).Samples, 0U);
    Store.Clear();
    Sums.Clear();
    EXPECT_EQ(Sums.Over(0, 0).Samples, 0U);
}

// Times are rounded to hundredths of a second, answers are lost, and the load swings.
TEST(SumsOfAKnownLoad, GiveItsChargeAndEnergyWithinAThousandth) {
    SummedStore log;
    std::mt19937 random(3);
    const double volts = 24, mean = 2, swing = 1.5, period = 20;
    double seconds = 0, first = 0;
    for (std::int32_t number = 1; seconds < 3600; ++number) {
        seconds += 0.165 * static_cast<double>(1 + (random() % 20 == 0 ? 4 : 0)) +
                   static_cast<double>(random() % 12) / 1000;
        if (number == 1) first = seconds;
        const double amps = mean + swing * std::sin(2 * std::numbers::pi * seconds / period);
        log.Append({static_cast<float>(volts), static_cast<float>(amps),
                    static_cast<std::uint32_t>(std::lround(seconds * 100)), 0, 3, 4},
                   number);
    }
    const auto charge = [&](double until) {
        const double turns = 2 * std::numbers::pi / period;
        return (mean * until - swing / turns * std::cos(turns * until)) / 3600;
    };
    const double ampHours = charge(seconds) - charge(first);
    const RangeSums sums = log.Sums.Over(0, log.Store.Count() - 1);
    EXPECT_NEAR(sums.AmpHours() / ampHours, 1, 0.001);
    EXPECT_NEAR(sums.WattHours() / (volts * ampHours), 1, 0.001);
    EXPECT_EQ(sums.SkippedSeconds(), 0);
    EXPECT_NEAR(sums.Seconds(), seconds - first, 0.011);
}

TEST(MemoryOfTheLog, IsSixteenBytesASampleAndAFractionForItsSums) {
    SummedStore log;
    for (std::int32_t number = 1; number <= 524'288; ++number)  // a day of polling
        log.Append({12, 0.1F, static_cast<std::uint32_t>(number) * 16, 3, 3, 4, 0x54}, number);
    EXPECT_EQ(log.Store.At(524'000).Status, 0x54);
    EXPECT_LE(static_cast<double>(log.Store.Bytes()) / 524'288, 16.05);
    EXPECT_LE(static_cast<double>(log.Sums.Bytes()) / 524'288, 0.2);
}

}  // namespace
}  // namespace zps::tests
