// How the settings window shows what came of an exchange.
#pragma once

#include "controls/colours.h"
#include "source/reply.h"

namespace zps {

struct ResultLook {
    Colour Paint;
    const char* Caption;
};

// As long as nothing has come of it.
inline constexpr ResultLook NoResultLook{Colour::Grey, "통신 결과 DISPLAY"};

ResultLook LookOf(Reply result);

}  // namespace zps
