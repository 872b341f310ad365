// The link line of the main window: the bytes of the last reply and the counters.
#pragma once

#include "power/link/link_quality.h"
#include "power/panel/power_controls.h"

namespace zps {

QWidget* MakeLinkLine(PowerControls& controls);

// What became of the polls of the last minute and of the run, and how long the answers took.
QString QualityText(const LinkQuality& quality);

// The tool tips of the link's sign and of the counters tell the same. `quality` outlives the
// controls' use.
void DescribeLink(PowerControls& controls, const LinkQuality& quality);

}  // namespace zps
