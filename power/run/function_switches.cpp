#include "power/run/function_switches.h"

#include "power/panel/status_display.h"
#include "power/run/event_texts.h"
#include "source/reply.h"

#include <utility>

namespace zps {

FunctionSwitches::FunctionSwitches(PowerParts& parts, Commands& commands, History& happened,
                                   std::function<void()> changed)
    : Parts(parts), Happened(happened), Changed(std::move(changed)) {
    for (std::size_t place = 0; place < PlainFunctionCount; ++place) {
        commands.Connect(*(Parts.Controls.*PlainFunction(place).Button),
                         [this, place] { Toggle(place); });
    }
}

void FunctionSwitches::Toggle(std::size_t place) {
    const Function& function = PlainFunction(place);
    const bool on = !Flags.at(place).On;
    Flags.at(place) = {.On = on};
    ShowAsked(Parts.Controls, function, on);
    ShowDifference(Parts.Controls, function, on, false);
    Changed();
    Parts.Sender.SendCommand(function.Letter, on ? 1 : 0);
    Happened.Note(EventKind::Switched, RequestText(Parts.Source.LastRequest()));
}

void FunctionSwitches::Reset() {
    for (std::size_t place = 0; place < PlainFunctionCount; ++place) {
        Flags.at(place) = {};
        ShowAsked(Parts.Controls, PlainFunction(place), false);
        ShowDifference(Parts.Controls, PlainFunction(place), false, false);
    }
    ShowFunctions(Parts.Controls, 0);
    Changed();
}

void FunctionSwitches::PollsEnded() {
    for (std::size_t place = 0; place < PlainFunctionCount; ++place) {
        const Flag& flag = Flags.at(place);
        ShowDifference(Parts.Controls, PlainFunction(place), flag.On, flag.DifferentReports > 0);
    }
}

void FunctionSwitches::Reported(std::uint8_t bits, bool polled) {
    const int passing = polled ? 1 : 0;  // reports that may be older than the command
    ShowStatus(Parts.Controls, bits);
    for (std::size_t place = 0; place < PlainFunctionCount; ++place) {
        const Function& function = PlainFunction(place);
        const bool reported = (bits & function.Bit) != 0;
        Flag& flag = Flags.at(place);
        // Sensing that the supply reports is taken over, so that the next click switches it off.
        if (function.Bit == status::Sensing && reported) {
            flag.On = true;
            ShowAsked(Parts.Controls, function, true);
        }
        flag.DifferentReports = flag.On == reported ? 0 : flag.DifferentReports + 1;
        ShowDifference(Parts.Controls, function, flag.On, flag.DifferentReports > passing);
    }
}

}  // namespace zps
