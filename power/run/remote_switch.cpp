#include "power/run/remote_switch.h"

#include "power/panel/status_display.h"

#include <utility>

namespace zps {

RemoteSwitch::RemoteSwitch(PowerParts& parts, Commands& commands, Output& output, History& happened,
                           StepStart& start, Polling& polls, std::function<void()> changed)
    : Parts(parts),
      Out(output),
      Happened(happened),
      Start(start),
      Polls(polls),
      Changed(std::move(changed)) {
    commands.Connect(*Parts.Controls.cmdPREMOTE, [this] { cmdPREMOTE_Click(); });
}

void RemoteSwitch::SetRemoteControls(bool on) {
    Known = true;
    Usable = on;
    Changed();
}

void RemoteSwitch::cmdPREMOTE_Click() {
    Frame frame = ControlFrame(Parts.Source.PowerAddr, RemoteOn ? code::Dc1 : code::Dc3);
    Polls.Stop();
    if (RemoteOn)
        GoLocal();
    else
        GoRemote();
    Parts.Sender.Send(std::move(frame), ExpectAck);
    Happened.Note(EventKind::Switched, RemoteOn ? QStringLiteral("원격 제어로 전환")
                                                : QStringLiteral("본체 제어로 전환"));
}

void RemoteSwitch::GoLocal() {
    RemoteOn = false;
    Start.CallOff();
    Out.LeftToFrontPanel();
    SetRemoteControls(false);
    ShowControl(Parts.Controls, Control::Local);
    if (Out.Known() != OutputState::LeftOn) return;
    Happened.Note(EventKind::NotDone,
                  QStringLiteral("본체 제어로 바꿨습니다. 출력 상태는 본체에서 확인하십시오."));
}

void RemoteSwitch::GoRemote() {
    RemoteOn = true;
    SetRemoteControls(true);
    ShowControl(Parts.Controls, Control::Serial);
    // An output that is on goes on as it is.
    if (!Out.On()) Start.AfterNextReply();
}

}  // namespace zps
