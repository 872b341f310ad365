#include "power/log/log_run.h"

#include <algorithm>
#include <utility>

namespace zps {

LogRun::LogRun(Now now, WallClock wall) : Time(std::move(now)), Wall(std::move(wall)) {}

void LogRun::Restart(SupplyOnLine supply) {
    From = {std::move(supply), {}};
    Sums = {};
    EmptyChart();
    SampleNo = 0;
    LogStart.reset();
}

bool LogRun::Answered() {
    if (LogStart) return false;
    LogStart = Time();
    From.Start = Wall();
    return true;
}

LogRun::Entry LogRun::Take() {
    Answered();
    using Hundredths = std::chrono::duration<std::uint32_t, std::centi>;
    const auto passed = Time() - *LogStart + std::chrono::milliseconds(5);  // halves go up
    return {++SampleNo, std::chrono::duration_cast<Hundredths>(passed).count()};
}

void LogRun::Plot(const ChartPoint& point) {
    if (SampleValue < ChartRows) {
        ++SampleValue;
    } else {
        std::rotate(ChartData.begin(), ChartData.begin() + 1, ChartData.end());
    }
    ChartData[static_cast<std::size_t>(SampleValue - 1)] = point;
}

void LogRun::EmptyChart() {
    ChartData = {};
    SampleValue = 0;
}

}  // namespace zps
