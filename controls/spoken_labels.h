// What assistive tools hear of labels and lamps.
#pragma once

namespace zps {

// From now on a label that has an accessible name but no description tells its text as that; the
// toolkit would tell the name alone. A lamp has the role of one. Call it once, after the
// application object is made.
void SpeakLabels();

}  // namespace zps
