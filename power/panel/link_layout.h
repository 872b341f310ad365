// The link line of the main window: the bytes of the last reply and the counters.
#pragma once

#include "power/link/link_quality.h"
#include "power/panel/power_controls.h"

namespace zps {

QWidget* MakeLinkLine(PowerControls& controls);

// How many polls were answered, and how fast; two lines.
QString QualityText(const LinkQuality& quality);

// The tool tips of the counters tell out of how many polls. `quality` outlives the controls' use.
void DescribeCounters(PowerControls& controls, const LinkQuality& quality);

}  // namespace zps
