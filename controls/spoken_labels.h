// What assistive tools hear of a label.
#pragma once

namespace zps {

// From now on a label that has an accessible name tells its text as its description; the toolkit
// would tell the name alone. Call it once, after the application object is made.
void SpeakLabels();

}  // namespace zps
