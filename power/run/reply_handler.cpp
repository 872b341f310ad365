#include "power/run/reply_handler.h"

#include "power/panel/panel_enabling.h"
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

// The mark that a frame is out is taken off on every way out of the receive event, unless its
// answer is still awaited.
class BusyUntilEnd {
  public:
    explicit BusyUntilEnd(SOURCE& source) : Source(source) {}
    ~BusyUntilEnd() { Source.RxBusy = Awaited; }
    BusyUntilEnd(const BusyUntilEnd&) = delete;
    BusyUntilEnd& operator=(const BusyUntilEnd&) = delete;

    bool Awaited = false;

  private:
    SOURCE& Source;
};

}  // namespace

void ReplyHandler::comPOWER_OnComm() {
    BusyUntilEnd busy(Parts.Source);
    const bool wantsData = Parts.Source.ReplyFlag == ExpectData;
    const Bytes reply =
        GatherReply(Port, wantsData ? DataLength : AckLength, serial::WaitMode::HoldEvents);
    Handled = serial::Clock::now();
    Parts.Source.RxFrame = reply;
    const Reply result =
        JudgeReply(reply, Parts.Source.ReplyFlag, Parts.Source.PowerAddr, CheckByte::Whole);
    Parts.Source.RxResult = result;
    Parts.Held.Answered(result);
    busy.Awaited = result == Reply::None && Parts.Held.Awaits();
    std::optional<Message> message;
    if (result == Reply::Data) message = DecodeDataReply(reply);
    if (wantsData && result != Reply::Data) CountBadData(reply);
    auto& panels = *Parts.Controls.StatusBar_RXDATA;
    panels.ShowBytes(reply);
    panels.Blank(static_cast<int>(reply.size()) + 1, panels.Count());
    RearmTimers();
    if (message) Parts.Boxes.Show(&Parts.Window, *message);
    if (Parts.State.FaultResetPending) FaultReset();
}

std::optional<Message> ReplyHandler::DecodeDataReply(const Bytes& reply) {
    const ReadBack values = ReadDataReply(std::span(reply).first<DataLength>());
    const auto is = [&](std::uint8_t bit) { return (values.Status & bit) != 0; };
    std::optional<Message> message;
    if (is(status::Fault)) message = Fault(values.Code);
    ShowStatus(Parts.Controls, values.Status);
    if (is(status::Sensing)) Parts.State.VsenseOn = true;
    if (!is(status::Output) && Parts.State.OutputOn) message = EndOfOutput(values.Code);
    Parts.Controls.txtSTEP->setText(QString::fromStdString(FormatStep(values.Step)));
    if (Parts.State.OutputOn) TakeReadBack(values);
    return message;
}

std::optional<Message> ReplyHandler::Fault(std::uint8_t code) {
    OutputIsOff();
    ++Parts.State.Faults;
    Parts.State.FaultResetPending = code == OutputCurrentFault;
    for (const auto& fault : FaultTexts) {
        if (fault.Code == code) {
            return Message{MessageIcon::None, QStringLiteral("POWER ERROR"),
                           QString::fromUtf8(fault.Text)};
        }
    }
    return std::nullopt;
}

Message ReplyHandler::EndOfOutput(std::uint8_t code) {
    OutputIsOff();
    if (code == EndOfAutoRun) {
        return {MessageIcon::None, QStringLiteral("POWER END"),
                QStringLiteral("Auto Test Ending!!!")};
    }
    return {MessageIcon::None, QStringLiteral("POWER OFF"), QStringLiteral("output off상태!!")};
}

void ReplyHandler::OutputIsOff() {
    Parts.Timers.tmrDLE.SetEnabled(false);
    Parts.State.OutputOn = false;
    ShowOutput(Parts.Controls, false);
    SetOutputControls(Parts, true);
    Lock.ReleaseEditLock();
}

void ReplyHandler::TakeReadBack(const ReadBack& values) {
    constexpr double CountsPerWireCount = 10;  // the read-back is ten times finer than a set-point
    SOURCE& source = Parts.Source;
    const float volts = ToSingle(values.Volt / (source.VoltScale * CountsPerWireCount));
    const float amps = ToSingle(values.Curr / (source.CurrScale * CountsPerWireCount));
    const QString voltText = QString::fromStdString(source.FormatVoltFine(volts));
    const QString currText = QString::fromStdString(source.FormatCurrFine(amps));
    // No tick of tmrDLE can come during this update: ticks wait for a handler to end. Stopping the
    // timer for it would only stretch the time between two polls.
    Parts.Controls.txtVOLT->setText(voltText);
    Parts.Controls.txtCURR->setText(currText);
    Log.NoteReply();
    Log.Append(values.Step, {volts, source.VoltDecimalsFine}, {amps, source.CurrDecimalsFine});
}

void ReplyHandler::CountBadData(const Bytes& reply) {
    if (reply.empty()) {
        ++Parts.State.NoReplyCount;
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
    Parts.Timers.tmrDLE.SetEnabled(Parts.State.OutputOn);
    if (retriesOver) return;
    if (Parts.State.RunPhase == PowerState::PhaseStatusPoll) {
        Parts.Timers.tmrStatus.SetEnabled(true);
    }
    Log.NoteReply();
    if (Parts.State.RunPhase == PowerState::PhaseStepStart) Parts.Timers.tmrSTART.SetEnabled(true);
}

void ReplyHandler::FaultReset() {
    Parts.State.FaultResetPending = false;  // first, or its own answer would reset again
    Parts.Line.Send(FrameBuilder(Parts.Source.PowerAddr).Command('R').Finish(), ExpectAck);
}

}  // namespace zps
