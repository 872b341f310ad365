// The chart of the measurement log for screen readers.
#pragma once

namespace zps {

// Has screen readers find every ChartFrame as a chart, described when they ask. May be called
// again.
void SpeakLogCharts();

}  // namespace zps
