// The words for what a supply reports.
#pragma once

#include "controls/message_boxes.h"
#include "power/link/held_steps.h"
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

// What a frame asks for: "전압 설정", "단계 03 송신", "출력 켜기".
QString RequestText(const Request& asked);

// What of a step the supply has not taken: "전원 장치가 단계 03의 전압 설정을 받지 않았습니다."
// Without values it is the selection of the step.
QString RefusalText(int step, StepValues values);

}  // namespace zps
