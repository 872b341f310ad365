// The five functions of the supply that have a switch, and all that they differ in.
#pragma once

#include "power/panel/power_controls.h"

#include <array>
#include <cstdint>

namespace zps {

struct Function {
    char Letter;       // of its command; 0 for remote control, which has control codes
    std::uint8_t Bit;  // in the status byte
    SwitchButton* PowerControls::*Button;
    const char* ButtonName;
    const char* Accessible;
    Pill* PowerControls::*Label;  // "ON" or "OFF", or who controls
    const char* LabelName;
    Lamp* PowerControls::*Light;
    const char* LightName;
    Colour Active;
    Colour Idle;
    const char* CaptionOff;  // of the button, as the supply reports the bit
    const char* CaptionOn;
    Qt::Key Key;
    const char* ToolTip;
};

// In the order in which their switches stand.
inline constexpr std::size_t FunctionCount = 5;
const std::array<Function, FunctionCount>& Functions();

// The single ones.
const Function& OutputFunction();
const Function& RemoteFunction();
// Those that only send their letter, 0 to 2: automatic run, sensing, over-current protection.
inline constexpr std::size_t PlainFunctionCount = 3;
const Function& PlainFunction(std::size_t place);

}  // namespace zps
