// What the chart of the measurement log shows.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>
#include <optional>

namespace zps {

constexpr int ChartRows = 20;
constexpr int ChartColumns = 2;  // voltage in volts, current in amperes

// A value that the supply has measured, and the decimals (0 to 5) that the panel shows it with.
struct Reading {
    float Value;
    int Decimals;

    bool operator==(const Reading&) const = default;
};

// A sample. Where there is no value the chart has a gap.
struct ChartPoint {
    std::array<std::optional<Reading>, ChartColumns> Values;
    std::int32_t Number = 0;       // in its run
    std::uint32_t Hundredths = 0;  // of a second, since the run's start
    std::uint32_t Run = 0;         // the runs in the log count up

    double Seconds() const { return Hundredths / 100.0; }
    bool IsGap() const {
        return std::none_of(Values.begin(), Values.end(),
                            [](const auto& value) { return value.has_value(); });
    }
    bool operator==(const ChartPoint&) const = default;
};
using ChartTable = std::array<ChartPoint, ChartRows>;

}  // namespace zps
