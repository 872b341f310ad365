#include "power/run/reply_handler.h"

#include "power/panel/status_display.h"
#include "power/run/event_texts.h"
#include "source/numbers.h"

namespace zps {

namespace {

constexpr int RetriesOver = 3;

// The mark that a frame is out is taken off on every way out of the receive event.
class BusyUntilEnd {
  public:
    explicit BusyUntilEnd(SOURCE& source) : Source(source) {}
    ~BusyUntilEnd() { Source.WasHandled(); }
    BusyUntilEnd(const BusyUntilEnd&) = delete;
    BusyUntilEnd& operator=(const BusyUntilEnd&) = delete;

  private:
    SOURCE& Source;
};

}  // namespace

void ReplyHandler::comPOWER_OnComm() {
    const BusyUntilEnd busy(Parts.Source);
    const bool wantsData = Parts.Source.ReplyFlag() == ExpectData;
    const Bytes reply =
        GatherReply(Around.Port, wantsData ? DataLength : AckLength, serial::WaitMode::HoldEvents);
    const Reply result =
        JudgeReply(reply, Parts.Source.ReplyFlag(), Parts.Source.PowerAddr, CheckByte::Whole);
    Parts.Source.WasJudged(reply, result);
    if (result == Reply::Nak) Refused();
    Around.Answer.Heard(result);
    std::optional<Message> message;
    if (wantsData) {
        const bool present = Around.Quality.Answered(result, reply.size());
        ShowCounts(Parts.Controls, Around.Quality);
        if (result == Reply::Data) message = DecodeDataReply(reply, present);
    }
    Parts.Controls.StatusBar_RXDATA->ShowBytes(reply);
    RearmTimers();
    if (message) Parts.Boxes.Show(&Parts.Window, *message);
    if (FaultResetPending) FaultReset();
}

std::optional<Message> ReplyHandler::DecodeDataReply(const Bytes& reply, bool present) {
    const ReadBack values = ReadDataReply(std::span(reply).first<DataLength>());
    const auto is = [&](std::uint8_t bit) { return (values.Status & bit) != 0; };
    std::optional<Message> message;
    if (is(status::Fault)) message = Fault(values.Code);
    Around.Functions.Reported(values.Status, Around.Out.On());
    if (!is(status::Output) && Around.Out.On()) message = EndOfOutput(values.Code);
    if (!is(status::Fault)) HeedOutput(is(status::Output));
    if (Around.Out.On() && !present) return message;  // the next poll asks for new values
    Parts.Controls.txtSTEP->setText(QString::fromStdString(FormatStep(values.Step)));
    Around.Progress.Reported(values.Step);
    if (Around.Out.On() && Parts.Source.RatingsKnown()) TakeReadBack(values);
    return message;
}

std::optional<Message> ReplyHandler::Fault(std::uint8_t code) {
    Around.Out.Tripped(code);
    Around.Happened.Note(EventKind::Trip, FaultEvent(code));
    FaultResetPending = code == OutputCurrentFault;
    return FaultMessage(code);
}

void ReplyHandler::HeedOutput(bool reportedOn) {
    const OutputState before = Around.Out.Known();
    Around.Out.Reported(reportedOn);
    const OutputState now = Around.Out.Known();
    if (now == before || now != OutputState::ReportedOn) return;
    Around.Happened.Note(
        EventKind::NotDone,
        QStringLiteral("전원 장치는 출력이 켜져 있다고 알립니다. 본체에서 확인하십시오."));
}

Message ReplyHandler::EndOfOutput(std::uint8_t code) {
    Around.Out.WentOff();
    if (code == EndOfAutoRun) {
        Around.Happened.Note(EventKind::EndOfRun,
                             QStringLiteral("자동 운전이 끝나 출력이 꺼졌습니다."));
        return {MessageIcon::Information, QStringLiteral("POWER END"),
                QStringLiteral("Auto Test Ending!!!")};
    }
    Around.Happened.Note(EventKind::OutputOff, QStringLiteral("전원 장치가 출력을 껐습니다."));
    return {MessageIcon::Information, QStringLiteral("POWER OFF"),
            QStringLiteral("output off상태!!")};
}

void ReplyHandler::Refused() {
    Around.Out.Refused();
    const Request& asked = Parts.Source.LastRequest();
    if (asked.Letter == letter::Sequence) Around.Progress.SequenceRefused();
    if (asked.Letter == letter::Count) Around.Progress.CountRefused();
    if (Around.Answer.Awaited()) return;  // whoever awaits it has more to say
    Around.Happened.Note(EventKind::Refused,
                         QStringLiteral("전원 장치가 거부했습니다: %1").arg(RequestText(asked)));
}

void ReplyHandler::TakeReadBack(const ReadBack& values) {
    constexpr double CountsPerWireCount = 10;  // the read-back is ten times finer than a set-point
    const SOURCE& source = Parts.Source;
    const float volts = ToSingle(values.Volt / (source.VoltScale() * CountsPerWireCount));
    const float amps = ToSingle(values.Curr / (source.CurrScale() * CountsPerWireCount));
    // No tick of tmrDLE can come during this update: ticks wait for a handler to end. Stopping the
    // timer for it would only stretch the time between two polls.
    Around.Shown.ShowReading(volts, amps);
    Around.Log.Append(values.Step, {volts, source.VoltDecimalsFine()},
                      {amps, source.CurrDecimalsFine()}, values.Status);
}

void ReplyHandler::RearmTimers() {
    const bool retriesOver = Parts.Source.RetryCount() >= RetriesOver;
    Parts.Source.Settle();
    Around.Polls.ReplyHandled();
    if (retriesOver) return;
    Around.Log.NoteReply();
    Around.Start.ReplyHandled();
}

void ReplyHandler::FaultReset() {
    FaultResetPending = false;  // first, or its own answer would reset again
    Parts.Sender.Send(FrameBuilder(Parts.Source.PowerAddr).Command(letter::FaultReset).Finish(),
                      ExpectAck);
}

}  // namespace zps
