// What the chart of the measurement log shows.
#pragma once

#include <array>
#include <optional>

namespace zps {

constexpr int ChartRows = 20;
constexpr int ChartColumns = 2;  // voltage in volts, current in amperes

// Where there is no value the chart has a gap.
using ChartPoint = std::array<std::optional<float>, ChartColumns>;
using ChartTable = std::array<ChartPoint, ChartRows>;

}  // namespace zps
