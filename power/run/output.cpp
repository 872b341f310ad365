#include "power/run/output.h"

#include <algorithm>

namespace zps {

namespace {
constexpr int Passing = 1;  // reports that may be older than the switching
}  // namespace

void Output::WentOn() {
    Become(OutputState::On);
}

void Output::WentOff() {
    Become(OutputState::Off);
}

void Output::LeftToFrontPanel() {
    Become(On() ? OutputState::LeftOn : OutputState::Off);
}

void Output::Asked() {
    ReportsOn = std::max(ReportsOn, Passing);
}

void Output::Reported(bool on) {
    if (On()) return;
    ReportsOn = on ? ReportsOn + 1 : 0;
    if (on && ReportsOn <= Passing) return;
    const auto known = on ? OutputState::ReportedOn : OutputState::Off;
    if (std::exchange(State, known) != known) ToldReport();
}

void Output::Tripped(int faultCode) {
    ++Objection.Faults;
    Objection.LastFault = faultCode;
    Become(OutputState::Off);
}

void Output::Become(OutputState state) {
    State = state;
    ReportsOn = 0;
    Told();
}

}  // namespace zps
