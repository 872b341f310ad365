// The book-keeping of the log's runs.
#pragma once

#include "power/log/chart_table.h"
#include "power/log/range_sums.h"
#include "power/log/run_origin.h"

#include <chrono>
#include <cstdint>
#include <functional>
#include <optional>

namespace zps {

// Numbers the samples of a run, counts their time from the first answer of the supply, sums them up
// and keeps the chart's table: the last samples in the order in which they came, or what was put
// there.
class LogRun {
  public:
    using Clock = std::chrono::steady_clock;
    using Now = std::function<Clock::time_point()>;

    // `now` must never go back. `wall` is asked once in a run, so that it may be set meanwhile.
    explicit LogRun(Now now = &Clock::now, WallClock wall = &std::chrono::system_clock::now);

    // A run of `supply` begins: its numbers at 1, its chart and its sums empty, its time not yet.
    void Restart(SupplyOnLine supply = {});
    // The supply has answered. True for the first answer of a run, which is its start.
    bool Answered();

    struct Entry {
        std::int32_t Number;       // in the run
        std::uint32_t Hundredths;  // of a second, since the run's start, rounded
    };
    // A sample has come, which is an answer too.
    Entry Take();
    void Sum(const Sample& sample) { Sums.Join({sample, 0}); }
    // Of all samples of the run, or of the last one until the next begins.
    const RangeSums& AllSums() const { return Sums; }
    // Of the run; its start is set with the first answer.
    const RunOrigin& Origin() const { return From; }
    // Adds the sample to the chart's table, behind those that came before.
    void Plot(const ChartPoint& point);

    const ChartTable& Chart() const { return ChartData; }
    // Replaces the table; samples go on where they would have gone.
    void PutIntoChart(const ChartTable& table) { ChartData = table; }
    void EmptyChart();

  private:
    Now Time;
    WallClock Wall;
    RunOrigin From;
    RangeSums Sums;
    ChartTable ChartData;
    std::int32_t SampleNo = 0;                  // samples of the run
    std::int32_t SampleValue = 0;               // those that came since the chart was emptied
    std::optional<Clock::time_point> LogStart;  // not set until the run's first answer
};

}  // namespace zps
