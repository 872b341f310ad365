#include "power/log/log_run.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

using namespace std::chrono_literals;

class LogRuns : public testing::Test {
  protected:
    // The number and the time of the next sample, as one text.
    std::string Take(float volts = 0) {
        const LogRun::Entry entry = Run.Take({volts, volts / 10});
        return std::to_string(entry.Number) + ' ' + std::to_string(entry.Hundredths);
    }
    std::optional<float> Volts(std::size_t row) const { return Run.Chart()[row - 1][0]; }

    LogRun::Clock::time_point Time{1h};
    LogRun Run{[this] { return Time; }};
};

TEST_F(LogRuns, CountFromTheirFirstAnswerOrSample) {
    EXPECT_TRUE(Run.Answered());
    Run.Restart();
    Time += 5s;
    EXPECT_TRUE(Run.Answered());
    Time += 1364ms;
    EXPECT_FALSE(Run.Answered());
    EXPECT_EQ(Take(), "1 136");
    Time += 1ms;
    Run.EmptyChart();
    EXPECT_EQ(Take(), "2 137");
    Run.Restart();
    Time += 500h;
    EXPECT_EQ(Take(), "1 0");
    Time += 497 * 24h;
    EXPECT_EQ(Take(), "2 4294080000");
    EXPECT_FALSE(Run.Answered());
}

TEST_F(LogRuns, ChartFillsToTwentySamplesAndThenMovesUp) {
    for (float k = 1; k <= 19; ++k) Take(k);
    EXPECT_EQ(Volts(19), 19.0F);
    EXPECT_EQ(Volts(20), std::nullopt);
    Take(20);
    EXPECT_EQ(Volts(1), 1.0F);
    for (float k = 21; k <= 45; ++k) Take(k);
    EXPECT_EQ(Volts(1), 26.0F);
    EXPECT_EQ(Run.Chart()[19], (ChartPoint{45.0F, 4.5F}));
    Run.EmptyChart();
    EXPECT_EQ(Run.Chart(), ChartTable{});
    Take(46);
    EXPECT_EQ(Volts(1), 46.0F);
}

}  // namespace
}  // namespace zps::tests
