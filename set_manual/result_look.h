// How the settings window shows what came of an exchange.
#pragma once

#include "controls/colours.h"
#include "controls/sign_label.h"
#include "source/reply.h"

namespace zps {

struct ResultLook {
    Colour Paint;
    const char* Caption;
    Sign Mark;
};

// As long as nothing has come of it.
inline constexpr ResultLook NoResultLook{Colour::Grey, "통신 결과 DISPLAY", Sign::None};

ResultLook LookOf(Reply result);

// How things stand while no exchange is shown.
struct CheckOutcome {
    bool PortOpen = false;
    bool Running = false;  // the check, or a single probe
    Reply Last = Reply::None;
    bool RatingsKnown = false;
};

// What the operator is to do then.
const char* NextStep(const CheckOutcome& outcome);

}  // namespace zps
