#include "power/run/output_switch.h"

#include "controls/shortcuts.h"
#include "controls/spoken_labels.h"
#include "power/panel/plate_look.h"
#include "power/panel/status_display.h"
#include "source/numbers.h"

#include <chrono>
#include <utility>

namespace zps {

using namespace std::chrono_literals;

namespace {
constexpr auto ReplyInProgressLimit = 1s;
constexpr auto Lateness = 100ms;  // more than a wait may overrun by itself
}  // namespace

OutputSwitch::OutputSwitch(PowerParts& parts, Commands& commands, const Surround& around)
    : Parts(parts), Around(around) {
    commands.Connect(
        *Parts.Controls.cmdOUTPUT, [this] { cmdOUTPUT_Click(); }, Commands::OpenEntry::LeaveOpen);
    GiveKeyElsewhere(*Parts.Controls.cmdOUTPUT, Qt::Key_F9, [this] { return Around.Out.On(); });
}

void OutputSwitch::cmdOUTPUT_Click() {
    const auto deadline = serial::Clock::now() + ReplyInProgressLimit;  // boxes of entries count
    // The button undoes what the panel shows.
    const bool switchOn = !Around.Out.On();
    if (switchOn && !Around.Fields.Commit()) return;
    Around.Polls.Stop();
    ShowMode(Parts.Controls, false);
    if (switchOn)
        SwitchOn(deadline);
    else
        SwitchOff();
}

void OutputSwitch::SwitchOff() {
    Around.Out.WentOff();
    Say(*Parts.Controls.Output_ONOFF);
    Around.Shown.ShowStep(Around.Rows.CurStep());
    Send(false);
    Around.Answer.Await([this](Reply result) { JudgeOff(result); });
    Around.Happened.Note(EventKind::Switched, QStringLiteral("출력 끄기"));
}

// Nothing is polled any more that would show the output on: whoever stands before the supply must
// hear that it may be.
void OutputSwitch::JudgeOff(Reply result) {
    if (result == Reply::Ack) return;
    const bool refused = result == Reply::Nak;
    Around.Happened.Note(
        refused ? EventKind::Refused : EventKind::NotDone,
        refused
            ? QStringLiteral("전원 장치가 출력 끄기 명령을 거부했습니다. 본체에서 확인하십시오.")
            : QStringLiteral("출력 끄기 명령에 응답이 없습니다. 본체에서 확인하십시오."));
}

void OutputSwitch::SwitchOn(serial::Clock::time_point deadline) {
    const PowerControls& c = Parts.Controls;
    Around.Quality.Restart();
    ShowCounts(Parts.Controls, Around.Quality);
    Around.Lock.ReleaseEditLock();
    const QString objection = WaitForReplyInProgress(deadline);
    if (!objection.isEmpty()) {
        Around.Happened.Note(EventKind::NotDone, objection);
        return;
    }
    Parts.Sender.AwaitOutstanding();  // a value without an answer by now is not acknowledged
    const int step = Around.Rows.CurStep();
    if (!Around.Port.PortOpen()) {  // what is told of the last run stays
        throw serial::PortError(Around.Port.CommPort(),
                                std::make_error_code(std::errc::bad_file_descriptor));
    }
    Around.Out.WentOn();
    NoteMissingValues(step);
    Around.Log.Restart(c.txtSTEP->text());
    try {
        Send(true);
    } catch (...) {
        Around.Out.WentOff();  // nothing has gone out
        throw;
    }
    Around.Happened.Note(
        EventKind::Switched,
        QStringLiteral("출력 켜기, 단계 %1").arg(QString::fromStdString(FormatStep(step))));
    Say(*Parts.Controls.Output_ONOFF);
    Around.Polls.Start();
}

void OutputSwitch::NoteMissingValues(int step) {
    const bool refused = Around.Held.Refused(step).any();
    const bool there = Around.Held.IsAt(step);
    if (there && !refused && Around.Held.Unsent(step).none()) return;
    const QString text =
        !there
            ? QStringLiteral(
                  "전원 장치가 선택된 단계(%1)가 아닌 단계로 출력할 수 있습니다. 표시판의 STEP을 "
                  "확인하십시오.")
        : refused ? QStringLiteral("단계 %1에 전원 장치가 받지 않은 값이 있지만 출력을 켰습니다.")
                  : QStringLiteral("단계 %1에 송신하지 않은 값이 있지만 출력을 켰습니다.");
    Around.Happened.Note(EventKind::NotDone, text.arg(QString::fromStdString(FormatStep(step))));
}

void OutputSwitch::Send(bool on) {
    Parts.Sender.SendCommand(letter::Output, on ? 1 : 0);
}

QString OutputSwitch::WaitForReplyInProgress(serial::Clock::time_point deadline) {
    const Output::Objections before = Around.Out.Objected();
    const unsigned refusals = Around.Fields.RefusalCount();
    const auto done = [this] {
        return !Parts.Sender.ReplyInProgress() && !Around.Start.UnderWay();
    };
    {
        const Gate::Shut shut(Around.Door);
        Parts.Events.Yield([&] { Around.Loop.RunUntil(done, deadline); });
    }
    if (Around.Start.UnderWay()) Around.Start.CallOff();
    const Output::Objections now = Around.Out.Objected();
    if (now.Faults != before.Faults) {
        return QStringLiteral("전원 장치가 오류(코드 %1)를 알려 출력을 켜지 않았습니다.")
            .arg(now.LastFault);
    }
    if (now.Refusals != before.Refusals)
        return QStringLiteral("전원 장치가 바로 앞의 명령을 거부하여 출력을 켜지 않았습니다.");
    if (Around.Fields.RefusalCount() != refusals)
        return QStringLiteral("범위를 벗어난 입력이 있어 출력을 켜지 않았습니다.");
    if (serial::Clock::now() > deadline + Lateness)
        return QStringLiteral("1초 안에 켜지 못하여 출력을 켜지 않았습니다. 다시 누르십시오.");
    return {};
}

}  // namespace zps
