// The look of the plate that the large numbers stand on: the same dark one on every desktop.
#pragma once

#include "controls/growing_frame.h"
#include "power/panel/power_controls.h"
#include "power/panel/reading_badge.h"

namespace zps {

// The plate itself; what is put into it has its colours.
class PlateFrame : public GrowingFrame {
  public:
    PlateFrame();

  protected:
    void paintEvent(QPaintEvent* event) override;
};

// The badge over the numbers; where it says something other than before, also its colour and
// theirs, and screen readers say it.
void ShowBadge(PowerControls& controls, const ReadingBadge& badge, bool other);
// "CV" or, limited by the current, "CC".
void ShowMode(PowerControls& controls, bool limited);

}  // namespace zps
