#include "simulator/console.h"

#include "simulator/fault_text.h"
#include "simulator/options.h"
#include "simulator/typed.h"

#include <array>
#include <sstream>
#include <vector>

namespace zps::simulator {

namespace {

struct Context {
    Line& Wire;
    PortLink& Link;
    const std::vector<std::string>& Words;
};

ConsoleAnswer Done(std::string text = {}) {
    return {std::move(text), false};
}

ConsoleAnswer OrderFault(Line& line, const FaultRule& rule, std::string_view figure) {
    if (const auto fault = ParseFault(rule, figure))
        line.OrderFault(*fault);
    else
        line.StopFault(rule.Kind);
    return Done();
}

ConsoleAnswer ShowFaults(const Context& context) {
    std::string text;
    for (const Fault& fault : context.Wire.OrderedFaults())
        text +=
            FaultText(fault) + ": struck " + std::to_string(context.Wire.Struck(fault.Kind)) + '\n';
    return Done(text.empty() ? "no faults\n" : text);
}

int AddressIn(const Context& context) {
    return ParseWhole(context.Words[1], 0, 255, "the address");
}

ConsoleAnswer TripSupply(const Context& context) {
    const int code = ParseWhole(context.Words[2], 1, 255, "the error code");
    context.Wire.Trip(AddressIn(context), code);
    return Done();
}

ConsoleAnswer ChangeLoad(const Context& context) {
    const double ohms = ParseNumber(context.Words[2], 1e-3, 1e9, "the load in ohms");
    context.Wire.SetLoad(AddressIn(context), ohms);
    return Done();
}

ConsoleAnswer PlugIn(const Context& context) {
    context.Wire.Plug();
    context.Link.Point(context.Wire.DeviceName());
    return Done("device " + context.Wire.DeviceName() + "\n");
}

ConsoleAnswer ShowState(const Context& context) {
    std::string text;
    for (const int address : context.Wire.Addresses())
        text += DescribeState(context.Wire.StateOf(address));
    return Done(text);
}

struct TypedCommand {
    std::string_view Name;
    std::size_t Values;
    ConsoleAnswer (*Run)(const Context& context);
};

constexpr std::array Commands{
    TypedCommand{"back", 0,
                 [](const Context& context) {
                     context.Wire.StopFault(FaultKind::Silent);
                     return Done();
                 }},
    TypedCommand{"healthy", 0,
                 [](const Context& context) {
                     context.Wire.StopFaults();
                     return Done();
                 }},
    TypedCommand{"faults", 0, ShowFaults},
    TypedCommand{"trip", 2, TripSupply},
    TypedCommand{"load", 2, ChangeLoad},
    TypedCommand{"unplug", 0,
                 [](const Context& context) {
                     context.Wire.Unplug();
                     return Done();
                 }},
    TypedCommand{"plug", 0, PlugIn},
    TypedCommand{"state", 0, ShowState},
    TypedCommand{"help", 0, [](const Context&) { return Done(std::string(HelpText())); }},
    TypedCommand{"quit", 0,
                 [](const Context&) {
                     return ConsoleAnswer{{}, true};
                 }},
};

}  // namespace

ConsoleAnswer RunCommand(std::string_view text, Line& line, PortLink& link) {
    std::istringstream stream{std::string(text)};
    std::vector<std::string> words;
    for (std::string word; stream >> word;) words.push_back(word);
    if (words.empty()) return Done();
    if (const FaultRule* const rule = FindRule(words[0]); rule != nullptr && words.size() <= 2)
        return OrderFault(line, *rule, words.size() == 2 ? words[1] : "");

    for (const TypedCommand& command : Commands) {
        if (command.Name != words[0] || command.Values != words.size() - 1) continue;
        try {
            return command.Run({line, link, words});
        } catch (const std::out_of_range& error) {
            throw UsageError(error.what());
        }
    }
    throw UsageError("not understood: '" + std::string(text) + "' (type help)");
}

std::string DescribeState(const SupplyState& state) {
    const auto onOff = [](bool on) { return on ? "on" : "off"; };
    const StepValues& step = state.Steps[static_cast<std::size_t>(state.ActiveStep)];
    std::ostringstream text;
    text << state.Options.Address << ": " << state.Options.Volts << " V/" << state.Options.Amps
         << " A " << (state.Remote ? "remote" : "local") << ", output " << onOff(state.Output)
         << ' ' << state.Out.Volts << " V " << state.Out.Amps << " A "
         << (state.Out.ConstantCurrent ? "CC" : "CV") << " into " << state.Options.LoadOhms
         << " ohm, step " << state.ActiveStep << " (" << step.Volts << " V " << step.Amps
         << " A, O.V.P. " << step.OvpVolts << " V), sensing " << onOff(state.Sensing) << ", O.C.P. "
         << onOff(state.OverCurrentProtection) << ", auto " << onOff(state.Auto) << ' '
         << state.CyclesDone << '/' << state.Count << " of " << state.Sequence.size() << " steps, "
         << (state.Fault ? "fault" : "code") << ' ' << state.Code << '\n';
    return text.str();
}

}  // namespace zps::simulator
