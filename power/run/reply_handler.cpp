#include "power/run/reply_handler.h"

#include "power/panel/status_display.h"
#include "source/numbers.h"

#include <array>

namespace zps {

namespace {

constexpr std::uint8_t EndOfAutoRun = 16;
constexpr std::uint8_t OutputCurrentFault = 7;  // the one fault that the panel resets by itself
constexpr int RetriesOver = 3;

struct FaultText {
    std::uint8_t Code;
    const char* Text;
};
constexpr std::array FaultTexts{
    FaultText{1, "OUT OFF ERROR VOLTAGE!!!"},
    FaultText{3, "MAX. OVER VOLTAGE!!!"},
    FaultText{4, "MAX. OVER CURRENT!!!"},
    FaultText{5, "SET OVER VOLTAGE!!!"},
    FaultText{6, "SET OVER CURRENT!!!"},
    FaultText{OutputCurrentFault, "OUT OFF ERROR CURRENT!!!"},
};

// The mark that a frame is out is taken off on every way out of the receive event.
class BusyUntilEnd {
  public:
    explicit BusyUntilEnd(SOURCE& source) : Source(source) {}
    ~BusyUntilEnd() { Source.RxBusy = false; }
    BusyUntilEnd(const BusyUntilEnd&) = delete;
    BusyUntilEnd& operator=(const BusyUntilEnd&) = delete;

  private:
    SOURCE& Source;
};

}  // namespace

void ReplyHandler::comPOWER_OnComm() {
    const BusyUntilEnd busy(Parts.Source);
    const bool wantsData = Parts.Source.ReplyFlag == ExpectData;
    const Bytes reply =
        GatherReply(Around.Port, wantsData ? DataLength : AckLength, serial::WaitMode::HoldEvents);
    Parts.Source.RxFrame = reply;
    const Reply result =
        JudgeReply(reply, Parts.Source.ReplyFlag, Parts.Source.PowerAddr, CheckByte::Whole);
    Parts.Source.RxResult = result;
    Around.Held.Answered(result);
    if (result == Reply::Nak) Around.Out.Refused();
    std::optional<Message> message;
    if (result == Reply::Data) message = DecodeDataReply(reply);
    if (wantsData && result != Reply::Data) CountBadData(reply);
    Parts.Controls.StatusBar_RXDATA->ShowBytes(reply);
    RearmTimers();
    if (message) Parts.Boxes.Show(&Parts.Window, *message);
    if (FaultResetPending) FaultReset();
}

std::optional<Message> ReplyHandler::DecodeDataReply(const Bytes& reply) {
    const ReadBack values = ReadDataReply(std::span(reply).first<DataLength>());
    const auto is = [&](std::uint8_t bit) { return (values.Status & bit) != 0; };
    std::optional<Message> message;
    if (is(status::Fault)) message = Fault(values.Code);
    Around.Functions.Reported(values.Status, Around.Out.On());
    if (!is(status::Output) && Around.Out.On()) message = EndOfOutput(values.Code);
    Parts.Controls.txtSTEP->setText(QString::fromStdString(FormatStep(values.Step)));
    Around.Progress.Reported(values.Step);
    if (Around.Out.On() && Parts.Source.RatingsKnown()) TakeReadBack(values);
    return message;
}

std::optional<Message> ReplyHandler::Fault(std::uint8_t code) {
    Around.Out.Tripped(code);
    FaultResetPending = code == OutputCurrentFault;
    for (const auto& fault : FaultTexts) {
        if (fault.Code == code) {
            return Message{MessageIcon::None, QStringLiteral("POWER ERROR"),
                           QString::fromUtf8(fault.Text)};
        }
    }
    Parts.Controls.lblNOTICE->setText(
        QStringLiteral("전원 장치가 오류를 알렸습니다(코드 %1).").arg(code));
    return std::nullopt;
}

Message ReplyHandler::EndOfOutput(std::uint8_t code) {
    Around.Out.WentOff();
    if (code == EndOfAutoRun) {
        return {MessageIcon::None, QStringLiteral("POWER END"),
                QStringLiteral("Auto Test Ending!!!")};
    }
    return {MessageIcon::None, QStringLiteral("POWER OFF"), QStringLiteral("output off상태!!")};
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
                      {amps, source.CurrDecimalsFine()});
}

void ReplyHandler::CountBadData(const Bytes& reply) {
    if (reply.empty()) {
        Around.Out.CountNoReply();
        RaiseCounter(*Parts.Controls.lblZPS_ERR);
    } else {
        RaiseCounter(reply.size() == DataLength ? *Parts.Controls.lblZPS_ENQ
                                                : *Parts.Controls.lblZPS_ERR1);
    }
}

void ReplyHandler::RearmTimers() {
    const bool retriesOver = Parts.Source.RetryCount >= RetriesOver;
    Parts.Source.RetryCount = 0;
    Parts.Source.ReplyFlag = ExpectAck;
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
