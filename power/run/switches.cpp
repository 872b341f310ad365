#include "power/run/switches.h"

#include "power/panel/panel_enabling.h"
#include "power/panel/status_display.h"

#include <chrono>

namespace zps {

using namespace std::chrono_literals;

namespace {

constexpr auto ReplyInProgressLimit = 1s;

constexpr PlainSwitch Auto{'G',
                           &PowerState::AutoOn,
                           &PowerControls::Auto_ONOFF,
                           &PowerControls::AutoLED,
                           Colour::DarkRed,
                           Colour::PaleOrange};
constexpr PlainSwitch Sensing{'W',
                              &PowerState::VsenseOn,
                              &PowerControls::Vsense_ONOFF,
                              &PowerControls::VsenseLED,
                              Colour::BrightGreen,
                              Colour::PaleGreen};
constexpr PlainSwitch OverCurrent{'X',
                                  &PowerState::OcpOn,
                                  &PowerControls::OCP_ONOFF,
                                  &PowerControls::OCPLED,
                                  Colour::BrightGreen,
                                  Colour::PaleGreen};

}  // namespace

Switches::Switches(PowerParts& parts, EditLock& lock, Entries& fields, MeasurementLog& log)
    : Parts(parts), Lock(lock), Fields(fields), Log(log) {
    PowerControls& c = Parts.Controls;
    Connect(*c.cmdOUTPUT, [this] { cmdOUTPUT_Click(); });
    Connect(*c.cmdAUTO, [this] { Toggle(Auto); });
    Connect(*c.cmdPVsense, [this] { Toggle(Sensing); });
    Connect(*c.cmdOCP, [this] { Toggle(OverCurrent); });
    Connect(*c.cmdPREMOTE, [this] { cmdPREMOTE_Click(); });
}

void Switches::Connect(QPushButton& button, std::function<void()> click) {
    const auto clicked = [this, &button, click = std::move(click)] {
        if (Parts.State.Switching) return;
        const bool byKey = button.hasFocus();  // the mouse does not give it
        Parts.Events.Run(click);
        // The click has taken it away; the next key is for the same switch.
        if (byKey && Parts.Controls.cmdFOCUS->hasFocus()) button.setFocus();
    };
    QObject::connect(&button, &QPushButton::clicked, &button, clicked);
}

void Switches::ResetFunctions() {
    if (Parts.State.OutputOn) SwitchOutputOff();
    ShowOutput(Parts.Controls, false);
    for (const PlainSwitch& plain : {Auto, Sensing, OverCurrent}) {
        Parts.State.*plain.On = false;
        Show(plain, false);
    }
    ShowFunctions(Parts.Controls, 0);
}

void Switches::Toggle(const PlainSwitch& plain) {
    if (!Fields.CommitAll()) return;
    bool& on = Parts.State.*plain.On;
    on = !on;
    Show(plain, on);
    Parts.Line.SendCommand(plain.Letter, on ? 1 : 0);
}

void Switches::Show(const PlainSwitch& plain, bool on) {
    (Parts.Controls.*plain.Label)->setText(on ? QStringLiteral("ON") : QStringLiteral("OFF"));
    (Parts.Controls.*plain.Light)->Light(on ? plain.Active : plain.Idle);
}

void Switches::cmdOUTPUT_Click() {
    // The button undoes what the panel shows: a step start clears OutputOn and says nothing of it.
    const bool shownOn = Parts.Controls.Output_ONOFF->text() == QStringLiteral("ON");
    const bool switchOn = !Parts.State.OutputOn && !shownOn;
    // Switching off must not depend on what stands in an entry field.
    if (switchOn && !Fields.CommitAll()) return;
    Parts.Timers.tmrDLE.SetEnabled(false);
    Parts.Controls.lblMODE->setText(QStringLiteral("CV"));
    if (switchOn && !SwitchOutputOn()) return;
    if (!switchOn) SwitchOutputOff();
    Parts.Line.SendCommand('A', switchOn ? 1 : 0);
    if (switchOn) Parts.Timers.tmrDLE.SetEnabled(true);
}

void Switches::SwitchOutputOff() {
    Parts.State.OutputOn = false;
    SetOutputControls(Parts, true);
    Lock.ReleaseEditLock();
    const auto step = static_cast<std::size_t>(Parts.State.CurStep);
    Parts.Controls.txtVOLT->setText(QString::fromStdString(Parts.Source.StepVolt.at(step)));
    Parts.Controls.txtCURR->setText(QString::fromStdString(Parts.Source.StepCurr.at(step)));
    ShowOutput(Parts.Controls, false);
}

bool Switches::SwitchOutputOn() {
    const int faults = Parts.State.Faults;
    PowerControls& c = Parts.Controls;
    for (QLabel* counter : {c.lblZPS_ENQ, c.lblZPS_ERR, c.lblZPS_ERR1}) {
        counter->setText(QStringLiteral("0"));
    }
    Lock.ReleaseEditLockOutputOn();
    WaitForReplyInProgress();
    if (faults != Parts.State.Faults) return false;  // the supply has reported one meanwhile
    Lock.ReleaseEditLockOutputOn();  // a step start during the wait has released all rows
    Parts.State.OutputOn = true;
    SetOutputControls(Parts, false);
    Log.Restart(c.txtSTEP->text());
    ShowOutput(c, true);
    Parts.State.NoReplyCount = 0;
    return true;
}

void Switches::WaitForReplyInProgress() {
    const auto done = [this] { return !Parts.Source.RxBusy && !StepStartUnderWay(); };
    Parts.State.Switching = true;
    Parts.Events.Yield(
        [&] { Parts.Loop.RunUntil(done, serial::Clock::now() + ReplyInProgressLimit); });
    Parts.State.Switching = false;
    if (StepStartUnderWay()) CallOffStepStart();
}

bool Switches::StepStartUnderWay() const {
    return Parts.State.RunPhase == PowerState::PhaseStepStart || Parts.Timers.tmrSTART.Enabled();
}

void Switches::CallOffStepStart() {
    Parts.State.RunPhase = PowerState::PhaseIdle;
    Parts.Timers.tmrSTART.SetEnabled(false);
    Parts.Timers.tmrStatus.SetEnabled(false);
}

void Switches::cmdPREMOTE_Click() {
    if (!Fields.CommitAll()) return;
    const std::uint8_t direction = Parts.State.RemoteOn ? code::Dc1 : code::Dc3;
    Frame frame = ControlFrame(Parts.Source.PowerAddr, direction);
    Parts.Timers.tmrDLE.SetEnabled(false);
    Parts.State.RemoteOn ? GoLocal() : GoRemote();
    Parts.Line.Send(std::move(frame), ExpectAck);
}

void Switches::GoLocal() {
    Parts.State.RemoteOn = false;
    CallOffStepStart();
    SetRemoteControls(Parts, false);
    Lock.FreePointer();
    Parts.State.OutputOn = false;
    ShowOutput(Parts.Controls, false);
    Parts.Controls.lblPREMOTE->setText(QStringLiteral("LOC"));
    Parts.Controls.Rem_Loc->setText(QStringLiteral("LOCAL"));
    Parts.Controls.RemoteLED->Light(Colour::DarkRed);
}

void Switches::GoRemote() {
    Parts.State.RemoteOn = true;
    if (!Parts.State.OutputOn) {  // an output that was on when it went to local has left locks
        SetOutputControls(Parts, true);
        Lock.ReleaseEditLock();
    }
    SetRemoteControls(Parts, true);
    Parts.Controls.lblPREMOTE->setText(QStringLiteral("RS232"));
    Parts.Controls.Rem_Loc->setText(QStringLiteral("REMOTE"));
    Parts.Controls.RemoteLED->Light(Colour::PaleOrange);
    Parts.State.RunPhase = PowerState::PhaseStepStart;
}

}  // namespace zps
