// What the errors of the libraries are called in the language of the windows.
#pragma once

#include "controls/message_boxes.h"

#include <system_error>

namespace zps {

namespace serial {
class PortError;
}
class OverflowError;

// Why a port can't be used. A reason without a text of its own is told by its number.
QString ReasonText(const std::error_code& reason);

// The box with which the program ends because it can't open its port.
Message StartMessageOf(const serial::PortError& error);

// The boxes that report an error.
Message MessageOf(const serial::PortError& error);
Message MessageOf(const OverflowError& error);

}  // namespace zps
