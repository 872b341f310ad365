// Messages that more than one routine shows.
#pragma once

#include "controls/message_boxes.h"

namespace zps {

// No value can be taken or sent: nobody knows the supply's limits and scale.
inline Message UnknownRatings() {
    return {MessageIcon::Information, QStringLiteral("STEP 설정 오류"),
            QStringLiteral("전원 장치의 정격을 모르므로 아무 값도 바꾸거나 보내지 않았습니다.\n"
                           "설정 > ZPS설정 > DATA 확인으로 정격을 먼저 읽으십시오.")};
}

}  // namespace zps
