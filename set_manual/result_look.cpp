#include "set_manual/result_look.h"

namespace zps {

ResultLook LookOf(Reply result) {
    switch (result) {
        case Reply::None:
            return {Colour::Red, "통신에라 = 응답무!!!", Sign::Bad};
        case Reply::Nak:
            return {Colour::Blue, "통신에라 = NAK수신!!!", Sign::Bad};
        case Reply::Ack:
            return {Colour::BrightGreen, "통신ok = ACK수신!!!", Sign::Good};
        case Reply::BadAck:
            return {Colour::Yellow, "통신에라 = ACK/NAK수신에라!!!", Sign::Doubtful};
        case Reply::Data:
            return {Colour::White, "통신ok = DATA수신!!!", Sign::Good};
        case Reply::BadData:
            return {Colour::Yellow, "통신에라 = DATA수신에라!!!", Sign::Doubtful};
    }
    return NoResultLook;
}

const char* NextStep(const CheckOutcome& outcome) {
    if (!outcome.PortOpen) return "포트를 열지 못했습니다. 다른 포트를 고르십시오.";
    if (outcome.Running) return "전원 장치를 확인하는 중입니다.";
    const bool answered = outcome.Last == Reply::Ack || outcome.Last == Reply::Data;
    if (!answered) return "전원, 케이블, 포트, 주소를 확인한 뒤 주소를 다시 고르십시오.";
    if (!outcome.RatingsKnown) return "정격을 아직 모릅니다. DATA 확인(F3)을 누르십시오.";
    return "이 창을 닫으면(Esc) 주 창을 쓸 수 있습니다.";
}

}  // namespace zps
