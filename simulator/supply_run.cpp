// How a supply's output goes on in time: ramps, trips and the automatic run.
#include "simulator/supply.h"

#include <algorithm>
#include <stdexcept>

namespace zps::simulator {

namespace {

constexpr std::chrono::milliseconds ShortestStep{1};

const StepValues& ActiveValues(const SupplyState& state) {
    return state.Steps[static_cast<std::size_t>(state.ActiveStep)];
}

}  // namespace

void Supply::Advance(Time now) {
    Latest = std::max(Latest, now);
    while (Run.Running() && Run.StepEnds() <= Latest) {
        const Time end = Run.StepEnds();
        SettleOutput(end);
        if (!Run.Running()) break;
        Run.Next(Now.Count);
        Now.CyclesDone = Run.CyclesDone();
        if (Run.Running()) {
            EnterStep(end);
        } else {
            SwitchOutput(false);
            Now.Code = AutoRunEnded;
        }
    }
    SettleOutput(Latest);
}

void Supply::SetLoad(double ohms, Time now) {
    if (!(ohms > 0)) throw std::invalid_argument("a load is above 0 ohms");
    Advance(now);
    Now.Options.LoadOhms = ohms;
    SettleOutput(Latest);
}

void Supply::Trip(int errorCode, Time now) {
    if (errorCode < 1 || errorCode > 255) throw std::invalid_argument("an error code is 1 to 255");
    Advance(now);
    SwitchOutput(false);
    Now.Fault = true;
    Now.Code = errorCode;
}

void Supply::SwitchOutput(bool on) {
    if (on == Now.Output) return;
    Now.Output = on;
    if (on) {
        Now.Fault = false;
        Now.Code = 0;
        return;
    }
    SetVolts = {};
    Now.Out = {};
    Run.Stop();
    Now.Running = false;
    Now.ActiveStep = Now.SelectedStep;
}

// After a frame has changed the settings: starts or ends the run, and lets the output move to where
// the active step now wants it.
void Supply::FollowSettings() {
    const bool wantsRun = Now.Output && Now.Auto && !Now.Sequence.empty();
    if (!wantsRun) Run.Stop();
    if (wantsRun && !Run.Running()) {
        Run.Begin(Now.Sequence);
        Now.CyclesDone = 0;
        EnterStep(Latest);
    }
    Now.Running = Run.Running();
    if (!Now.Running) Now.ActiveStep = Now.SelectedStep;
    if (Now.Output && SetVolts.To != ActiveValues(Now).Volts) MoveToTarget(Latest);
    SettleOutput(Latest);
}

void Supply::EnterStep(Time at) {
    Now.ActiveStep = Run.Step();
    const StepValues& step = ActiveValues(Now);
    MoveToTarget(at);
    Run.EndStepAt(at +
                  std::max<std::chrono::microseconds>({step.StepTime, step.Slope, ShortestStep}));
    SettleOutput(at);
}

void Supply::MoveToTarget(Time at) {
    const StepValues& step = ActiveValues(Now);
    SetVolts = {SetVolts.At(at), step.Volts, at, step.Slope};
}

void Supply::SettleOutput(Time at) {
    if (!Now.Output) return;
    const StepValues& step = ActiveValues(Now);
    Now.Out = Settle(SetVolts.At(at), step.Amps, Now.Options.LoadOhms);
    const int code = TripCodeOf(Now.Out, Limits());
    if (code == 0) return;
    SwitchOutput(false);
    Now.Fault = true;
    Now.Code = code;
}

TripLimits Supply::Limits() const {
    const auto mostOf = [](double rated, int scale) { return rated * HeadroomShare + 0.5 / scale; };
    return {mostOf(Now.Options.Volts, Now.VoltScale), mostOf(Now.Options.Amps, Now.CurrScale),
            ActiveValues(Now).OvpVolts, Now.OverCurrentProtection};
}

}  // namespace zps::simulator
