#include "set_manual/result_look.h"

namespace zps {

ResultLook LookOf(Reply result) {
    switch (result) {
        case Reply::None:
            return {Colour::Red, "통신에라 = 응답무!!!"};
        case Reply::Nak:
            return {Colour::Blue, "통신에라 = NAK수신!!!"};
        case Reply::Ack:
            return {Colour::BrightGreen, "통신ok = ACK수신!!!"};
        case Reply::BadAck:
            return {Colour::Yellow, "통신에라 = ACK/NAK수신에라!!!"};
        case Reply::Data:
            return {Colour::White, "통신ok = DATA수신!!!"};
        case Reply::BadData:
            return {Colour::Yellow, "통신에라 = DATA수신에라!!!"};
    }
    return NoResultLook;
}

}  // namespace zps
