#include "test/test.h"

#include "controls/colours.h"
#include "controls/spoken_labels.h"
#include "source/errors.h"
#include "source/numbers.h"

#include <QTime>

#include <chrono>
#include <limits>
#include <utility>

namespace zps {

namespace {

constexpr std::size_t LongestReply = 20;  // what is waited for; a data reply has fewer bytes
constexpr std::chrono::milliseconds LatestAnswer{200};

}  // namespace

TEST::TEST(SOURCE& source, POWER& power, const Surroundings& around)
    : PortWindow(source, power, around), Controls(MakeTestControls(*this)) {
    setObjectName(QStringLiteral("TEST"));
    setWindowTitle(QStringLiteral("통신 TEST"));
    const auto run = [this](auto handler) { return [this, handler] { Events.Run(handler); }; };
    connect(Controls.txtPADDR, &QLineEdit::textChanged, this, run([this] { txtPADDR_Change(); }));
    connect(Controls.cmdENQ, &QPushButton::clicked, this, run([this] { Probe(code::Enq); }));
    connect(Controls.cmdDLE, &QPushButton::clicked, this, run([this] { Probe(code::Dle); }));
    // A silent supply raises no event by itself: the frame that has gone out does.
    comPOWER->OnReceive(serial::EventKind::InputAndOutput, run([this] { comPOWER_OnComm(); }));
}

void TEST::Form_Load() {
    FormPort = Source.CommPort;
    FormAddr = Source.SetAddr;
    Controls.txtPCOMMPORT->ShowValue(QString::number(FormPort));
    Controls.txtPADDR->setText(QString::number(FormAddr));
    if (const auto error = OpenPort(FormPort)) ReportLater(*error);
}

void TEST::PortReturned(bool open) {
    if (!open) Power.ShowPanels(false);
}

// While the text is no number the last address that was one stays.
void TEST::txtPADDR_Change() {
    using Limits = std::numeric_limits<std::int16_t>;
    QString hint;
    try {
        FormAddr = static_cast<std::int16_t>(StrictInteger(
            Controls.txtPADDR->text().trimmed().toStdString(), Limits::min(), Limits::max()));
    } catch (const OverflowError&) {
        hint = QStringLiteral("주소로 쓸 수 없습니다(숫자가 아니거나 너무 큼). 지금 주소: %1")
                   .arg(FormAddr);
    }
    Controls.txtPADDR->setToolTip(hint);
    if (hint.isEmpty()) {
        Controls.txtPADDR->setPalette({});
    } else {
        PaintBackground(*Controls.txtPADDR, Colour::Yellow);
    }
}

void TEST::Probe(std::uint8_t controlCode) {
    Source.LayFrame(ProbeFrame(FormAddr, controlCode, FormAddr));
    comPOWER->DiscardInput();
    ++ProbesOut;
    ProbeSilent = true;
    SentAt = serial::Clock::now();
    comPOWER->Output(Source.TxFrame());
}

// For one byte first: when that comes is how quick the supply is, and a data reply never has as
// many as are waited for.
Bytes TEST::Gather() {
    const auto began = serial::Clock::now();
    const bool any = comPOWER->WaitForInput(1, ReplyWait, serial::WaitMode::RunEvents);
    FirstByteAt = serial::Clock::now();
    const auto waited = std::chrono::ceil<std::chrono::milliseconds>(FirstByteAt - began);
    const auto left = any && waited < ReplyWait ? ReplyWait - waited : std::chrono::milliseconds(0);
    return GatherReply(*comPOWER, LongestReply, serial::WaitMode::RunEvents, left);
}

void TEST::comPOWER_OnComm() {
    const unsigned exchange = ExchangeNumber;
    const Bytes reply = Gather();
    if (exchange != ExchangeNumber) return;
    // A probe sent during the wait before has been judged with what came then.
    // Its answer may come later still.
    const bool unjudged = std::exchange(ProbesJudged, ProbesOut) != ProbesOut;
    const bool late = !reply.empty() && ProbeSilent && FirstByteAt - SentAt < LatestAnswer;
    const bool asked = unjudged || late;
    if (!reply.empty()) ProbeSilent = false;
    if (!asked && reply.empty()) return;
    const Verdict verdict = JudgeMonitorReply(reply, FormAddr);
    ShowPanels(reply, verdict);
    // Not paced: what comes right after must not take their place.
    if (verdict == Verdict::GoodDle) ShowFields(reply);
    Last = {StampOf(reply.size(), asked), verdict, ShownHeader(reply)};
    Display.Changed();
}

Stamp TEST::StampOf(std::size_t count, bool asked) const {
    Stamp stamp{QTime::currentTime().toString(QStringLiteral("HH:mm:ss")).toStdString(), count,
                asked};
    if (asked && count > 0 && FirstByteAt >= SentAt)
        stamp.After = std::chrono::duration_cast<std::chrono::milliseconds>(FirstByteAt - SentAt);
    return stamp;
}

// What is blanked is blank whatever came there: an acknowledgement has three bytes.
void TEST::ShowPanels(std::span<const std::uint8_t> reply, Verdict verdict) {
    NumberPanels& panels = *Controls.StatusBar_RXDATA;
    if (verdict == Verdict::GoodEnq)
        panels.ShowBytes(reply.first(AckLength), DataLength);
    else
        panels.ShowBytes(reply, verdict == Verdict::Nothing ? DataLength : 0);
}

void TEST::ShowLast() {
    const bool good = IsGood(Last.Judged);
    Controls.lblRXBUFFER->setText(QString::number(Last.When.Bytes));
    Say(*Controls.lblRESULT, QString::fromUtf8(TextOf(Last.Judged)));
    Controls.lblRESULT->ShowSign(good ? Sign::Good : Sign::Bad);
    PaintBackground(*Controls.lblRESULT, good ? Colour::BrightGreen : Colour::Red);
    Controls.lblSTAMP->setText(QString::fromStdString(TextOf(Last.When)));
    for (std::size_t i = 0; i < Controls.lblRXDATA.size(); ++i) {
        Controls.lblRXDATA.at(i)->setText(Last.Header ? QString::number(Last.Header->at(i))
                                                      : QString());
    }
    const bool old = Last.Judged != Verdict::GoodDle;
    Controls.Fields->ShowOld(old);
    Controls.Lamps->ShowOld(old);
}

void TEST::ShowFields(const Bytes& reply) {
    const auto bytes = std::span(reply).first<DataLength>();
    Controls.Fields->Show(DecodeFields(bytes, Source.KnownAt(FormAddr)));
    Controls.Lamps->Show(ReadDataReply(bytes).Status);
}

}  // namespace zps
