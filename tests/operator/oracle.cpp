#include "tests/operator/oracle.h"

#include "controls/lamp.h"
#include "simulator/command.h"
#include "source/frame.h"

#include <QPushButton>

#include <cmath>
#include <filesystem>

namespace zps::tests {

namespace fs = std::filesystem;
using simulator::SupplyState;
using std::chrono::milliseconds;

namespace {

// How long a step may be shown as held after its values were lost: the answer may take 1 s.
constexpr auto DoubtLimit = 1600ms;
// The watch brings lost polls back after 1 s.
constexpr auto PollLimit = 2500ms;
constexpr auto LampLimit = 1500ms;

std::string RatingsOf(const SupplyState& supply) {
    return QStringLiteral("%1V/%2A")
        .arg(std::lround(supply.Options.Volts))
        .arg(std::lround(supply.Options.Amps))
        .toStdString();
}

std::string Hex(const Bytes& bytes) {
    return QByteArray(reinterpret_cast<const char*>(bytes.data()), static_cast<int>(bytes.size()))
        .toHex(' ')
        .toStdString();
}

int Word(const Bytes& data, std::size_t at = 0) {
    return data[at] * 256 + data[at + 1];
}

// Whether a supply with these ratings may be told this.
bool WithinRatings(const simulator::Command& command, const SupplyState& supply) {
    const auto counts = [&](double most, int scale) {
        return Word(command.Data) <= std::lround(most * scale);
    };
    switch (command.Letter) {
        case 'V':
            return counts(supply.Options.Volts, supply.VoltScale);
        case 'C':
            return counts(supply.Options.Amps, supply.CurrScale);
        case 'O':
            return counts(supply.Options.Volts * simulator::HeadroomShare, supply.VoltScale);
        case 'T':
            return Word(command.Data) <= 50000 && Word(command.Data, 2) < 1000 &&
                   command.Data[4] < 100;
        default:
            return Word(command.Data) <= 50000 && command.Data[2] < 100;
    }
}

bool IsValue(const simulator::Command& command) {
    return std::string_view("VCOTD").find(command.Letter) != std::string_view::npos;
}

double Seconds(std::chrono::microseconds time) {
    return std::chrono::duration<double>(time).count();
}

// In all five values, as exactly as the wire can tell.
bool Equal(const PanelView::Step& shown, const simulator::StepValues& held,
           const SupplyState& supply) {
    const auto near = [](double a, double b, double step) {
        return std::abs(a - b) <= step * 0.51;
    };
    return near(shown.Volts, held.Volts, 1.0 / supply.VoltScale) &&
           near(shown.Amps, held.Amps, 1.0 / supply.CurrScale) &&
           near(shown.OvpVolts, held.OvpVolts, 1.0 / supply.VoltScale) &&
           near(shown.Seconds, Seconds(held.StepTime), 1e-5) &&
           near(shown.SlopeSeconds, Seconds(held.Slope), 1e-5);
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

Oracle::Oracle(SimulatedPanel& panel, std::map<int, simulator::Line*> lines)
    : Panel(panel), View(panel), Lines(std::move(lines)) {}

std::vector<std::string> Oracle::Judge() {
    const Time now = simulator::Clock::now();
    Passed = std::min(duration_cast<milliseconds>(now - LastJudged), 100ms);
    std::vector<std::string> wrong;
    for (const auto judge :
         {&Oracle::JudgeFrames, &Oracle::JudgePolling, &Oracle::JudgeHeldSteps,
          &Oracle::JudgeSwitches, &Oracle::JudgeReadOut, &Oracle::JudgeWindows}) {
        wrong.push_back((this->*judge)());
    }
    std::erase(wrong, "");
    LastJudged = now;
    WasOff = !View.ShownOn();
    HadPort = View.MainHasPort();
    ShownRatings = View.Text("lblSPEC_VA").toStdString();
    return wrong;
}

std::optional<SupplyState> Oracle::RatedSupply() const {
    const auto line = Lines.find(View.Port());
    if (line == Lines.end()) return {};
    for (const int address : line->second->Addresses()) {
        if (address != View.Address()) continue;
        auto supply = line->second->StateOf(address);
        if (RatingsOf(supply) == View.Text("lblSPEC_VA").toStdString()) return supply;
    }
    return {};
}

std::string Oracle::JudgeFrames() {
    std::string wrong;
    for (const auto& [port, line] : Lines) {
        for (const auto& frame : line->TakeReceivedTimed()) {
            if (wrong.empty()) wrong = JudgeFrame(*line, frame);
        }
    }
    return wrong;
}

std::string Oracle::JudgeFrame(simulator::Line& line, const simulator::Frame& frame) {
    const bool poll = frame.Kind == simulator::FrameKind::Control && frame.Content[1] == code::Dle;
    if (poll) return JudgePoll(frame);
    PollsWhileOff = 0;
    if (frame.Kind != simulator::FrameKind::Commands) return {};
    for (const int address : line.Addresses()) {
        if (address == frame.Content[0]) return JudgeCommands(line.StateOf(address), frame.Content);
    }
    SupplyState nobody;
    nobody.Options = {.Volts = 0, .Amps = 0};
    return JudgeCommands(nobody, frame.Content);
}

std::string Oracle::JudgeCommands(const SupplyState& supply, const Bytes& frame) const {
    const auto commands = simulator::ParseCommands(std::span(frame).subspan(3, frame.at(2)));
    if (!commands) return "a frame that no supply understands: " + Hex(frame);
    const auto rated = RatingsOf(supply);
    const auto shown = View.Text("lblSPEC_VA").toStdString();
    for (const auto& command : *commands) {
        if (!IsValue(command)) continue;
        if (rated != shown && rated != ShownRatings)
            return "a value for a supply of unknown ratings: " + Hex(frame) + ", it has " + rated +
                   ", shown are " + shown;
        if (!WithinRatings(command, supply))
            return "a value beyond the ratings: " + Hex(frame) + ", it has " + rated;
    }
    return {};
}

// A step start polls once behind its own frame; more than that is polling.
std::string Oracle::JudgePoll(const simulator::Frame& frame) {
    WithoutPoll = {};
    const bool off = WasOff && !View.ShownOn() && HadPort && View.MainHasPort();
    PollsWhileOff = off && frame.FirstAt > LastJudged ? PollsWhileOff + 1 : 0;
    return PollsWhileOff > 1 ? "polled while the output is shown off" : "";
}

std::string Oracle::JudgePolling() {
    const bool due = !WasOff && View.ShownOn() && HadPort && View.MainHasPort() && Plugged;
    WithoutPoll = due ? WithoutPoll + Passed : 0ms;
    return WithoutPoll > PollLimit ? "no poll while the output is shown on" : "";
}

std::string Oracle::JudgeHeldSteps() {
    const auto supply = RatedSupply();
    for (int number = 0; number < StepCount; ++number) {
        const auto step = static_cast<std::size_t>(number);
        const auto shown = View.StepOf(number);
        const bool wrong = supply && shown.Held && !Equal(shown, supply->Steps.at(step), *supply);
        WronglyHeld.at(step) = wrong ? WronglyHeld.at(step) + Passed : 0ms;
        if (WronglyHeld.at(step) <= DoubtLimit) continue;
        const auto& held = supply->Steps.at(step);
        return QStringLiteral(
                   "a step is marked as held that is not: step %1, "
                   "shown %2 V %3 A %4 V %5 s %6 s, held ")
                   .arg(number)
                   .arg(shown.Volts)
                   .arg(shown.Amps)
                   .arg(shown.OvpVolts)
                   .arg(shown.Seconds)
                   .arg(shown.SlopeSeconds)
                   .toStdString() +
               QStringLiteral("%1 V %2 A %3 V %4 s %5 s")
                   .arg(held.Volts)
                   .arg(held.Amps)
                   .arg(held.OvpVolts)
                   .arg(Seconds(held.StepTime))
                   .arg(Seconds(held.Slope))
                   .toStdString();
    }
    return {};
}

std::string Oracle::JudgeSwitches() {
    const auto lit = [&](const char* lamp, Colour colour) {
        return Panel.Get<Lamp>(lamp).Lit() == colour;
    };
    if (View.ShownOn() != lit("OutputLED", Colour::DarkRed)) return "OUTPUT: label against lamp";
    const bool remote = View.Text("Rem_Loc") == QStringLiteral("REMOTE");
    if (remote != lit("RemoteLED", Colour::PaleOrange)) return "REMOTE: label against lamp";
    if (remote == (View.Text("lblPREMOTE") == QStringLiteral("LOC"))) return "REMOTE: both labels";
    if (View.Text("cmdPREMOTE") != View.Text("Rem_Loc")) return "REMOTE: caption against label";

    struct Function {
        const char* Label;
        const char* Light;
        Colour Active;
    };
    for (const auto& [label, light, active] :
         {Function{"Auto_ONOFF", "AutoLED", Colour::DarkRed},
          Function{"Vsense_ONOFF", "VsenseLED", Colour::BrightGreen},
          Function{"OCP_ONOFF", "OCPLED", Colour::BrightGreen}}) {
        // The lamp shows what the supply reports; where that differs for long, a tool tip says so.
        const bool told = !Panel.Get<QWidget>(label).toolTip().isEmpty() ||
                          !Panel.Get<QWidget>(light).toolTip().isEmpty();
        const bool differ = (View.Text(label) == QStringLiteral("ON")) != lit(light, active);
        auto& since = Contradicted[label];
        since = differ && !told ? since + Passed : 0ms;
        if (since > LampLimit) return std::string(label) + " against its lamp";
    }
    return {};
}

// A number measured by a supply whose ratings the panel does not have.
std::string Oracle::JudgeReadOut() {
    if (!View.ShownOn() || WasOff || !View.MainHasPort() || !View.Usable("cmdOUTPUT")) return {};
    bool number = false;
    View.Text("txtVOLT").toDouble(&number);
    if (!number || RatedSupply()) return {};
    return "a measured value in unknown units: " + View.Text("txtVOLT").toStdString() + " V";
}

std::string Oracle::JudgeWindows() {
    if (Panel.Main().isEnabled() != View.MainHasPort())
        return "main window enabled against open windows";
    for (const auto& [port, line] : Lines) {
        const std::string device = line->DeviceName();
        // The line itself keeps it open once.
        if (!device.empty() && OpensOf(device) > 2) return "two holders of the port";
    }
    if (!View.MainHasPort()) return {};
    const bool settings = Panel.Get<QAction>("mnuSET_MANU").isEnabled();
    const bool off = View.ShownOn() && View.Usable("cmdOUTPUT");
    if (!settings && !off && !View.Usable("cmdPREMOTE")) return "no way to the settings window";
    return {};
}

}  // namespace zps::tests
