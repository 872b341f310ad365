// What is known of the output.
#pragma once

#include <cstdint>

namespace zps {

enum class OutputState : std::uint8_t {
    Off,
    On,
    LeftOn,      // it was on when the supply went back to its own front panel
    ReportedOn,  // it is off as far as was asked; the supply reports it on
};

}  // namespace zps
