// What a message on the line says, in words and figures.
#pragma once

#include "record/line_trace.h"

#include <QString>

namespace zps {

// A frame of the panel: "단계 03 V=12.00 I=1.000", "출력 켜기", "DLE 조회". Values of a supply
// whose ratings were not known are told as counts: "V=1200".
QString FrameName(const LineMessage& frame);

// A reply: "ACK", "DATA 12.500 V 0.1250 A CV 단계 00". What is neither is told by its length.
QString ReplyName(const LineMessage& reply);

// Its bytes, two hexadecimal digits each: "01 10 11".
QString HexOf(const LineMessage& message);

}  // namespace zps
