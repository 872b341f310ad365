#include "tests/operator/oracle.h"

#include "simulator/command.h"
#include "source/frame.h"
#include "test/test.h"

#include <cmath>
#include <filesystem>

namespace zps::tests {

namespace fs = std::filesystem;
using simulator::FrameKind;
using simulator::SupplyState;

QWidget* PanelView::Test() const {
    return Panel.Run.Test();
}

namespace {

constexpr auto AnswerLimit = 1600ms;  // an answer may take 1 s, and the watch comes by a bit later
constexpr auto PollLimit = 2500ms;
constexpr auto LampLimit = 1500ms;

// As the main window shows them.
std::string RatingsOf(const SupplyState& supply) {
    return std::to_string(std::lround(supply.Options.Volts)) + "V/" +
           std::to_string(std::lround(supply.Options.Amps)) + "A";
}

bool WithinRatings(const simulator::Command& command, const SupplyState& supply) {
    const int count = command.Data[0] * 256 + command.Data[1];
    switch (command.Letter) {
        case 'V':
            return count <= std::lround(supply.Options.Volts * supply.VoltScale);
        case 'C':
            return count <= std::lround(supply.Options.Amps * supply.CurrScale);
        case 'O':
            return count <=
                   std::lround(supply.Options.Volts * simulator::HeadroomShare * supply.VoltScale);
        default:  // the supply itself refuses a time or slope that is too long
            return true;
    }
}

// Where the two differ, as exactly as the wire can tell; empty if nowhere.
std::string Difference(const std::array<double, 5>& shown, const simulator::StepValues& held,
                       const SupplyState& supply) {
    const auto seconds = [](auto time) { return std::chrono::duration<double>(time).count(); };
    const std::array has{held.Volts, held.Amps, held.OvpVolts, seconds(held.StepTime),
                         seconds(held.Slope)};
    const std::array unit{1.0 / supply.VoltScale, 1.0 / supply.CurrScale, 1.0 / supply.VoltScale,
                          1e-5, 1e-5};
    constexpr std::array names{"voltage", "current", "over-voltage", "time", "slope"};
    for (std::size_t i = 0; i < has.size(); ++i) {
        if (std::abs(shown.at(i) - has.at(i)) > unit.at(i) * 0.51)
            return std::string(names.at(i)) + ' ' + std::to_string(shown.at(i)) +
                   ", the supply has " + std::to_string(has.at(i));
    }
    return {};
}

// How often this process has the device open.
int OpensOf(const std::string& device) {
    int opens = 0;
    std::error_code gone;
    for (const auto& one : fs::directory_iterator("/proc/self/fd", gone)) {
        if (fs::read_symlink(one.path(), gone) == device) ++opens;
    }
    return opens;
}

}  // namespace

Findings Oracle::Judge() {
    const auto now = simulator::Clock::now();
    Passed = std::min(duration_cast<Milliseconds>(now - LastJudged), 100ms);
    for (const auto& [port, line] : Lines) {
        for (const auto& frame : line->TakeReceivedTimed()) JudgeFrame(*line, frame);
    }
    if (!Plugged) PollsWhileOff = 0;  // what should stand between two polls may be lost
    JudgeHeldSteps();
    JudgeSwitches();
    JudgeWindows();
    LastJudged = now;
    WasOn = View.ShownOn();
    HadPort = View.MainHasPort();
    HadRatings = View.Text("lblSPEC_VA");
    return std::exchange(Wrong, {});
}

void Oracle::Persists(const std::string& what, bool so, Milliseconds limit,
                      const std::string& how) {
    auto& time = Lasting[what];
    time = so ? time + Passed : 0ms;
    if (time > limit) Wrong.push_back(what + how);
}

std::optional<SupplyState> Oracle::RatedSupply() const {
    const auto line = Lines.find(View.Port());
    if (line == Lines.end()) return {};
    for (const int address : line->second->Addresses()) {
        auto supply = line->second->StateOf(address);
        if (address == View.Address() && RatingsOf(supply) == View.Text("lblSPEC_VA"))
            return supply;
    }
    return {};
}

void Oracle::JudgeFrame(simulator::Line& line, const simulator::Frame& frame) {
    if (frame.Kind == FrameKind::Control && frame.Content[1] == code::Dle) return JudgePoll(frame);
    PollsWhileOff = 0;
    if (frame.Kind != FrameKind::Commands) return;
    SupplyState to;
    to.Options = {.Volts = 0, .Amps = 0};  // nobody
    for (const int address : line.Addresses()) {
        if (address == frame.Content[0]) to = line.StateOf(address);
    }
    JudgeValues(to, frame.Content);
}

void Oracle::JudgeValues(const SupplyState& supply, const Bytes& frame) {
    const auto bytes = std::span(frame);
    const auto commands = simulator::ParseCommands(bytes.subspan(3, frame.at(2)));
    const auto hex =
        QByteArray(reinterpret_cast<const char*>(frame.data()), static_cast<int>(frame.size()))
            .toHex(' ')
            .toStdString();
    const std::string to = " in " + hex + " to " + RatingsOf(supply);
    if (!commands) return Wrong.push_back("a value beyond all ratings: " + to);
    for (const auto& command : *commands) {
        if (std::string_view("VCOTD").find(command.Letter) == std::string_view::npos) continue;
        const auto shown = View.Text("lblSPEC_VA");
        if (RatingsOf(supply) != shown && RatingsOf(supply) != HadRatings)
            Wrong.push_back("a value to a supply of other ratings: " + to + ", shown " + shown);
        else if (!WithinRatings(command, supply))
            Wrong.push_back("a value beyond the ratings: " + (command.Letter + to));
    }
}

// A step start polls once behind its own frame; more than that is polling.
void Oracle::JudgePoll(const simulator::Frame& frame) {
    Lasting["no poll while the output is shown on"] = 0ms;
    // What it was meanwhile is not known of a long action.
    const bool off = !WasOn && !View.ShownOn() && HadPort && View.MainHasPort() &&
                     simulator::Clock::now() - LastJudged < 600ms;
    PollsWhileOff = off && frame.FirstAt > LastJudged ? PollsWhileOff + 1 : 0;
    if (PollsWhileOff > 1) Wrong.push_back("polled while the output is shown off");
}

void Oracle::JudgeHeldSteps() {
    const auto supply = RatedSupply();
    for (std::size_t step = 0; step < StepCount; ++step) {
        std::string differs;
        if (supply && View.Held(step))
            differs = Difference(View.Values(step), supply->Steps.at(step), *supply);
        Persists("a step is marked as held that is not: " + std::to_string(step), !differs.empty(),
                 AnswerLimit, ' ' + differs);
    }
}

void Oracle::JudgeSwitches() {
    const bool on = View.ShownOn();
    const bool uses = WasOn && on && HadPort && View.MainHasPort();
    Persists("no poll while the output is shown on", uses && Plugged, PollLimit);
    bool number = false;
    QString::fromStdString(View.Text("txtVOLT")).toDouble(&number);
    if (uses && View.Usable("cmdOUTPUT") && number && !RatedSupply())
        Wrong.push_back("a measured value in unknown units");
    if (on != View.Lit("OutputLED", Colour::DarkRed)) Wrong.push_back("OUTPUT: label and lamp");

    const bool remote = View.Text("Rem_Loc") == "REMOTE";
    if (remote != View.Lit("RemoteLED", Colour::PaleOrange))
        Wrong.push_back("REMOTE: label and lamp");
    if (remote == (View.Text("lblPREMOTE") == "LOC")) Wrong.push_back("REMOTE: labels");
    if (View.Text("cmdPREMOTE") != View.Text("Rem_Loc")) Wrong.push_back("REMOTE: caption");

    // Their lamps show what the supply reports; where that differs for long, a tool tip says so.
    for (const std::string name : {"Auto", "Vsense", "OCP"}) {
        const auto label = name + "_ONOFF";
        const auto lamp = name + "LED";
        const bool lit =
            View.Lit(lamp.c_str(), name == "Auto" ? Colour::DarkRed : Colour::BrightGreen);
        const bool told = !View.Panel.Get<QWidget>(label.c_str()).toolTip().isEmpty() ||
                          !View.Panel.Get<QWidget>(lamp.c_str()).toolTip().isEmpty();
        Persists(name + ": label and lamp", lit != (View.Text(label.c_str()) == "ON") && !told,
                 LampLimit);
    }
}

void Oracle::JudgeWindows() {
    if (View.Panel.Main().isEnabled() != View.MainHasPort())
        Wrong.push_back("main window enabled against the other windows");
    for (const auto& [port, line] : Lines) {
        const std::string device = line->DeviceName();  // the line itself keeps it open once
        if (!device.empty() && OpensOf(device) > 2) Wrong.push_back("two holders of the port");
    }
    const bool canSwitchOff = View.ShownOn() && View.Usable("cmdOUTPUT");
    if (View.MainHasPort() && !View.MenuUsable() && !canSwitchOff && !View.Usable("cmdPREMOTE"))
        Wrong.push_back("no way to the settings window");
}

}  // namespace zps::tests
