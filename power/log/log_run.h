// The book-keeping of the log's runs.
#pragma once

#include "power/log/chart_table.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace zps {

// Numbers the samples of a run, counts their time from the first answer of the supply and keeps the
// chart's table: the last samples in the order in which they came, or what was put there.
class LogRun {
  public:
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;

    // `now` must never go back.
    explicit LogRun(Now now = &Clock::now);

    // A run begins: its numbers at 1, its chart empty, its time not yet.
    void Restart();
    // The supply has answered. True for the first answer of a run, which is its start.
    bool Answered();

    struct Entry {
        std::int32_t Number;       // in the run
        std::uint32_t Hundredths;  // of a second, since the run's start, rounded
    };
    // A sample has come, which is an answer too.
    Entry Take();
    // Adds the sample to the chart's table, behind those that came before.
    void Plot(const ChartPoint& point);

    const ChartTable& Chart() const { return ChartData; }
    // Replaces the table; samples go on where they would have gone.
    void PutIntoChart(const ChartTable& table) { ChartData = table; }
    void EmptyChart();

  private:
    Now Time;
    ChartTable ChartData;
    std::int32_t SampleNo = 0;                  // samples of the run
    std::int32_t SampleValue = 0;               // those that came since the chart was emptied
    std::optional<Clock::time_point> LogStart;  // not set until the run's first answer
};

}  // namespace zps
