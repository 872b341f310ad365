// What must hold after each action of the operator, told by the supplies and by what is shown.
#pragma once

#include "controls/lamp.h"
#include "simulator/command.h"
#include "source/frame.h"
#include "source/numbers.h"
#include "test/test.h"
#include "tests/support/panel.h"

#include <algorithm>
#include <cmath>
#include <cstring>
#include <filesystem>
#include <map>

namespace zps::tests {

using simulator::SupplyState;

class SeenPanel : public SimulatedPanel {
  public:
    using SimulatedPanel::SimulatedPanel;
    // The settings or test window, which has the port while it is open; else null.
    QWidget* PortWindow() {
        if (Run.Settings() != nullptr) return Run.Settings();
        return Run.Test();
    }
    // In the main window.
    QWidget& Control(const std::string& name) { return Get<QWidget>(name.c_str()); }
    std::string Seen(const std::string& name) {
        return Control(name).property("text").toString().toStdString();
    }
    bool Lit(const std::string& name, Colour as) { return Get<Lamp>(name.c_str()).Lit() == as; }
    bool ShownOn() { return Seen("Output_ONOFF") == "ON"; }
    bool Runs(bool on) { return PortWindow() == nullptr && ShownOn() == on; }
    bool Usable(const char* name) { return Control(name).isVisible() && Control(name).isEnabled(); }
    bool MenuUsable() { return Get<QAction>("mnuSET_MANU").isEnabled(); }
};

class Oracle {
  public:
    // `lines`: by the number of the port behind which each is. No two supplies have equal ratings.
    Oracle(SeenPanel& panel, std::map<int, simulator::Line*> lines)
        : Panel(panel), Lines(std::move(lines)) {}

    // What is wrong now, or came over the lines since the last call; empty if nothing.
    std::string Judge() {
        const auto now = simulator::Clock::now();
        Passed = std::min(duration_cast<std::chrono::milliseconds>(now - LastJudged), 100ms);
        for (const auto& [port, line] : Lines) {
            for (const auto& frame : line->TakeReceivedTimed()) JudgeFrame(*line, frame);
            const std::string device = line->DeviceName();  // the line itself keeps it open once
            Never(!device.empty() && OpensOf(device) > 2, "two holders of the port");
        }
        if (!Plugged) PollsWhileOff = 0;  // what should stand between two polls may be lost
        JudgeHeldSteps();
        JudgeSwitches();
        LastJudged = now;
        WasOn = Panel.Runs(true);
        WasOff = Panel.Runs(false);
        HadRatings = Panel.Seen("lblSPEC_VA");
        return std::exchange(Wrong, {});
    }

    void Never(bool so, const std::string& what) {
        if (so && Wrong.empty()) Wrong = what;
    }

    bool Plugged = true;  // whether the first line hears the panel

  private:
    // Wrong once it has been `so` for longer than `limit`.
    void NeverLong(bool so, std::chrono::milliseconds limit, const std::string& what,
                   const std::string& how = {}) {
        auto& time = Lasting[what];
        time = so ? time + Passed : 0ms;
        Never(time > limit, what + how);
    }

    // As the main window shows them.
    static std::string RatingsOf(const SupplyState& supply) {
        return std::to_string(std::lround(supply.Options.Volts)) + "V/" +
               std::to_string(std::lround(supply.Options.Amps)) + "A";
    }

    static SupplyState SupplyAt(const simulator::Line& line, int address) {
        const auto all = line.Addresses();
        if (std::ranges::count(all, address) > 0) return line.StateOf(address);
        SupplyState nobody;
        nobody.Options = {.Volts = 0, .Amps = 0};
        return nobody;
    }

    // The supply that the panel talks to, if its ratings are those that are shown.
    std::optional<SupplyState> RatedSupply() {
        if (!Lines.contains(Panel.Source().CommPort)) return {};
        const auto supply = SupplyAt(*Lines.at(Panel.Source().CommPort), Panel.Source().PowerAddr);
        if (RatingsOf(supply) != Panel.Seen("lblSPEC_VA")) return {};
        return supply;
    }

    void JudgeFrame(const simulator::Line& line, const simulator::Frame& frame) {
        using simulator::FrameKind;
        const auto bytes = std::span(frame.Content);
        if (frame.Kind == FrameKind::Control && bytes[1] == code::Dle) return JudgePoll(frame);
        PollsWhileOff = 0;
        if (frame.Kind != FrameKind::Commands) return;
        const auto supply = SupplyAt(line, bytes[0]);
        const auto ratings = RatingsOf(supply);
        const auto shown = Panel.Seen("lblSPEC_VA");
        const QByteArray raw(reinterpret_cast<const char*>(bytes.data()), std::ssize(bytes));
        const auto told =
            ": " + raw.toHex(' ').toStdString() + " to " + ratings + ", shown " + shown;
        const auto commands = simulator::ParseCommands(bytes.subspan(3, bytes[2]));
        if (!commands) return Never(true, "a value beyond all ratings" + told);
        for (const auto& command : *commands) {
            if (command.Letter == letter::Output && command.Data[0] == 1) WasOff = false;
            if (std::strchr("VCOTD", command.Letter) == nullptr) continue;
            const bool known = ratings == shown || ratings == HadRatings;
            Never(!known, "a value to a supply of other ratings" + told);
            const int count = command.Data[0] * 256 + command.Data[1];
            Never(known && count > Limit(command.Letter, supply),
                  "a value beyond the ratings" + told);
        }
    }

    // What its two bytes may count at most. A time or slope too long is refused by the supply.
    static double Limit(char letter, const SupplyState& supply) {
        const double volts = supply.Options.Volts * supply.VoltScale;
        if (letter == 'V') return volts + 0.5;
        if (letter == 'O') return volts * simulator::HeadroomShare + 0.5;
        return letter == 'C' ? supply.Options.Amps * supply.CurrScale + 0.5 : 0x10000;
    }

    // A step start polls once behind its own frame; more than that is polling.
    void JudgePoll(const simulator::Frame& frame) {
        Lasting["no poll while the output is shown on"] = 0ms;
        // What it was meanwhile is not known of a long action.
        const bool off =
            WasOff && Panel.Runs(false) && simulator::Clock::now() - LastJudged < 600ms;
        PollsWhileOff = off && frame.FirstAt > LastJudged ? PollsWhileOff + 1 : 0;
        Never(PollsWhileOff > 1, "polled while the output is shown off");
    }

    void JudgeHeldSteps() {
        const auto supply = RatedSupply();
        for (int step = 0; step < simulator::StepCount; ++step) {
            const bool held = supply && Panel.Source().StepFlag(step);
            const auto differs = held ? Difference(step, *supply) : "";
            // An answer may take 1 s, and the watch comes by a bit later.
            NeverLong(!differs.empty(), 1600ms, "not as marked: step " + std::to_string(step),
                      differs);
        }
    }

    // Where the values of a step's row are not the supply's, as exactly as the wire can tell.
    std::string Difference(int step, const SupplyState& supply) {
        const auto& has = supply.Steps.at(static_cast<std::size_t>(step));
        const double volt = 1.0 / supply.VoltScale, amp = 1.0 / supply.CurrScale;
        const auto seconds = [](auto time) { return std::chrono::duration<double>(time).count(); };
        // In the order of StepValue.
        const double values[] = {has.Volts, has.Amps, seconds(has.StepTime), seconds(has.Slope),
                                 has.OvpVolts};
        const double units[] = {volt, amp, 1e-5, 1e-5, volt};
        for (std::size_t i = 0; i < StepValueCount; ++i) {
            const auto& shown = Panel.Source().Text(static_cast<StepValue>(i), step);
            if (std::abs(LeadingNumber(shown) - values[i]) > units[i] * 0.51)
                return ": " + shown + ", the supply has " + std::to_string(values[i]);
        }
        return {};
    }

    void JudgeSwitches() {
        const bool on = Panel.ShownOn();
        const bool hasPort = Panel.PortWindow() == nullptr;
        const bool usable = Panel.Usable("cmdOUTPUT");
        const bool running = WasOn && Panel.Runs(true);
        NeverLong(running && Plugged, 2500ms, "no poll while the output is shown on");
        bool number = false;
        QString::fromStdString(Panel.Seen("txtVOLT")).toDouble(&number);
        Never(running && usable && number && !RatedSupply(), "a measured value in unknown units");

        const auto remote = Panel.Seen("Rem_Loc");
        const bool lit = Panel.Lit("RemoteLED", Colour::PaleOrange);
        const bool told = !Panel.Control("Output_ONOFF").toolTip().isEmpty();
        Never((on || told) != Panel.Lit("OutputLED", Colour::DarkRed), "OUTPUT: label and lamp");
        Never(lit != (remote == "REMOTE"), "REMOTE: label and lamp");
        Never(lit == (Panel.Seen("lblPREMOTE") == "LOC"), "REMOTE: labels");
        Never(remote != Panel.Seen("cmdPREMOTE"), "REMOTE: caption");
        JudgeLamp("Auto", Colour::DarkRed);
        JudgeLamp("Vsense", Colour::BrightGreen);
        JudgeLamp("OCP", Colour::BrightGreen);

        Never(Panel.Main().isEnabled() != hasPort, "main window enabled against the others");
        Never(hasPort && !Panel.MenuUsable() && !(on && usable) && !Panel.Usable("cmdPREMOTE"),
              "no way to the settings window");
    }

    // These show what the supply reports; where that differs for long, a tool tip says so.
    void JudgeLamp(const std::string& name, Colour colour) {
        const auto label = name + "_ONOFF", lamp = name + "LED";
        const bool told =
            !(Panel.Control(label).toolTip() + Panel.Control(lamp).toolTip()).isEmpty();
        const bool agree = Panel.Lit(lamp, colour) == (Panel.Seen(label) == "ON");
        using simulator::FaultKind;
        const auto faults = Lines.at(1)->OrderedFaults();
        // Without a second report nothing is told.
        const bool heard = Plugged && std::ranges::none_of(faults, [](const auto& fault) {
                               return fault.Kind == FaultKind::Silent ||
                                      fault.Kind == FaultKind::Drop ||
                                      fault.Kind == FaultKind::Garble;
                           });
        NeverLong(heard && !agree && !told, 1500ms, name + ": label and lamp");
    }

    // How often this process has the device open.
    static int OpensOf(const std::string& device) {
        int opens = 0;
        std::error_code gone;
        for (const auto& one : std::filesystem::directory_iterator("/proc/self/fd", gone))
            opens += std::filesystem::read_symlink(one.path(), gone) == device ? 1 : 0;
        return opens;
    }

    SeenPanel& Panel;
    std::map<int, simulator::Line*> Lines;
    std::string Wrong;
    // How it was at the last call.
    simulator::Time LastJudged{};
    bool WasOn = false;
    bool WasOff = false;  // and nobody has switched it on since
    std::string HadRatings;
    int PollsWhileOff = 0;
    // Since then, as far as the panel could act: a machine that stands still takes no time.
    std::chrono::milliseconds Passed{};
    std::map<std::string, std::chrono::milliseconds> Lasting;
};

}  // namespace zps::tests
