// The signs of message boxes.
#pragma once

#include "controls/message_boxes.h"

#include <QIcon>

namespace zps {

// Sharp at any size and scale. Empty for MessageIcon::None.
QIcon DrawMessageIcon(MessageIcon icon);

}  // namespace zps
