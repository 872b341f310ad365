// The drawing of a curve whose samples are too many for a line.
#pragma once

#include "power/log/run_curve.h"

#include <cstddef>

class QCPGraph;

namespace zps {

// Draws the bands of a column's values beside `graph`, in the same colour: a line through as many
// points would take the toolkit seconds. `seen`, whatever is in it when it is drawn, outlives that.
void AddBands(QCPGraph& graph, std::size_t column, const Trace& seen);

}  // namespace zps
