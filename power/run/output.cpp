#include "power/run/output.h"

namespace zps {

void Output::WentOn() {
    NoReplies = 0;
    Become(true);
}

void Output::WentOff() {
    Become(false);
}

void Output::Tripped(int faultCode) {
    ++Objection.Faults;
    Objection.LastFault = faultCode;
    Become(false);
}

void Output::Become(bool on) {
    OutputOn = on;
    Told();
}

}  // namespace zps
