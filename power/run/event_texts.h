// The words for what a supply reports.
#pragma once

#include "controls/message_boxes.h"
#include "source/frame.h"

#include <QString>

#include <cstdint>
#include <optional>

namespace zps {

inline constexpr std::uint8_t EndOfAutoRun = 16;
inline constexpr std::uint8_t OutputCurrentFault = 7;  // the one fault that the panel resets

// The box for a fault; none for a code without a text.
std::optional<Message> FaultMessage(std::uint8_t faultCode);
// The same for the line of the last event; every code has one.
QString FaultEvent(std::uint8_t faultCode);

// The letter of a framed command, of the first one in it; none in a control frame.
std::optional<char> LetterOf(const Bytes& frame);

// What a frame asks for: "전압 설정", "단계 03", "출력 켜기".
QString RequestText(const Bytes& frame);

}  // namespace zps
