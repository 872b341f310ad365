// What most routines of the main window work with. POWER owns all of it.
#pragma once

#include "controls/handlers.h"
#include "controls/message_boxes.h"
#include "power/panel/power_controls.h"
#include "source/source.h"
#include "source/transmitter.h"

namespace zps {

struct PowerParts {
    SOURCE& Source;
    PowerControls& Controls;
    Transmitter& Sender;
    Handlers& Events;
    MessageBoxes& Boxes;
    QWidget& Window;
};

}  // namespace zps
