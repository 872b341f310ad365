// The link line of the main window: the bytes of the last reply and the counters.
#pragma once

#include "power/link/link_quality.h"
#include "power/panel/power_controls.h"

namespace zps {

QWidget* MakeLinkLine(PowerControls& controls);

// The tool tips of the link's sign and of the counters tell what became of the polls and how long
// the answers took. `quality` outlives the controls' use.
void DescribeLink(PowerControls& controls, const LinkQuality& quality);

}  // namespace zps
