// What a person reads off the chart: a sample, and the difference of two that are marked.
#pragma once

#include "power/log/chart_table.h"

#include <QString>

#include <array>
#include <optional>

namespace zps {

// Two samples, A and B. They stay marked when the chart has moved on, until they are cleared.
class ChartMarks {
  public:
    // Marks A, then B; the next time there is no mark again.
    void Put(const ChartPoint& point);
    void Clear() { Places = {}; }

    const std::array<std::optional<ChartPoint>, 2>& Marked() const { return Places; }
    // From A to B, "Δ 1.65초 · +0.012 V · -0.0003 A"; empty without both. Times of two runs have no
    // difference.
    QString Difference() const;

  private:
    std::array<std::optional<ChartPoint>, 2> Places;
};

// "NO 21 · 3.47초", and "12.500 V · 1.2500 A" below it.
QString ReadingText(const ChartPoint& point);

// The whole chart for people who can't see it: "전압 12.5 V, 전류 1.25 A, 최근 20회".
QString SummaryText(const ChartTable& table);

}  // namespace zps
