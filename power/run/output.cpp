#include "power/run/output.h"

namespace zps {

void Output::WentOn() {
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
