#include "test/test.h"

#include "controls/colours.h"
#include "source/errors.h"
#include "source/numbers.h"

#include <limits>
#include <utility>

namespace zps {

namespace {
constexpr std::size_t LongestReply = 20;  // what is waited for; a data reply has fewer bytes
}

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
    comPOWER->Output(Source.TxFrame);
}

void TEST::comPOWER_OnComm() {
    const unsigned exchange = ExchangeNumber;
    const Bytes reply = GatherReply(*comPOWER, LongestReply, serial::WaitMode::RunEvents);
    if (exchange != ExchangeNumber) return;
    // A probe sent during the wait before has been judged with what came then.
    const bool judged = std::exchange(ProbesJudged, ProbesOut) == ProbesOut;
    if (judged && reply.empty()) return;
    const Verdict verdict = JudgeMonitorReply(reply, FormAddr);
    ShowPanels(reply, verdict);
    // Not paced: what comes right after must not take their place.
    if (verdict == Verdict::GoodDle) ShowFields(reply);
    Last = {reply.size(), verdict, ShownHeader(reply)};
    Display.Changed();
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
    Controls.lblRXBUFFER->setText(QString::number(Last.Count));
    Controls.lblRESULT->setText(QString::fromUtf8(TextOf(Last.Judged)));
    PaintBackground(*Controls.lblRESULT, IsGood(Last.Judged) ? Colour::BrightGreen : Colour::Red);
    for (std::size_t i = 0; i < Controls.lblRXDATA.size(); ++i) {
        Controls.lblRXDATA.at(i)->setText(Last.Header ? QString::number(Last.Header->at(i))
                                                      : QString());
    }
}

void TEST::ShowFields(const Bytes& reply) {
    const auto bytes = std::span(reply).first<DataLength>();
    const ReadBack values = ReadDataReply(bytes);
    const RatingFields fields = ReadRatingFields(bytes);
    Controls.lblSTATUS->setText(QString::number(values.Status));
    Controls.lblERROR->setText(QString::fromStdString(ErrorText(values.Code)));
    Controls.lblVOLTAGE->setText(QString::number(fields.Volt));
    Controls.lblOVP->setText(QString::number(fields.Ovp));
    Controls.lblCURRENT->setText(QString::number(fields.Curr));
    Controls.lblSTEP->setText(QString::number(values.Step));
    for (std::size_t bit = 0; bit < Controls.ledSTATUS.size(); ++bit) {
        const bool set = (values.Status >> bit & 1U) != 0;
        QLabel& lamp = *Controls.ledSTATUS.at(bit);
        PaintBackground(lamp, set ? Colour::Red : Colour::White);
        lamp.setAccessibleDescription(set ? QStringLiteral("켜짐") : QStringLiteral("꺼짐"));
    }
}

}  // namespace zps
