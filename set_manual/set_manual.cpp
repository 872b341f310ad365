#include "set_manual/set_manual.h"

#include "controls/colours.h"
#include "controls/error_texts.h"
#include "set_manual/models.h"
#include "source/numbers.h"

#include <QEvent>
#include <QLineEdit>

#include <array>
#include <chrono>

namespace zps {

using namespace std::chrono_literals;

namespace {

constexpr auto DelayAtLoad = 200ms;
constexpr auto DelayAfterChoice = 50ms;

struct ResultLook {
    Reply Result;
    Colour Paint;
    const char* Caption;
};
constexpr std::array ResultLooks{
    ResultLook{Reply::None, Colour::Red, "통신에라 = 응답무!!!"},
    ResultLook{Reply::Nak, Colour::Blue, "통신에라 = NAK수신!!!"},
    ResultLook{Reply::Ack, Colour::BrightGreen, "통신ok = ACK수신!!!"},
    ResultLook{Reply::BadAck, Colour::Yellow, "통신에라 = ACK/NAK수신에라!!!"},
    ResultLook{Reply::Data, Colour::White, "통신ok = DATA수신!!!"},
    ResultLook{Reply::BadData, Colour::Yellow, "통신에라 = DATA수신에라!!!"},
};

QString Fixed(double value, int decimals) {
    return QString::fromStdString(FormatFixed(value, decimals));
}

double NumberIn(const QLineEdit& box) {
    return LeadingNumber(box.text().toStdString());
}

}  // namespace

SET_MANUAL::SET_MANUAL(SOURCE& source, POWER& power, const Surroundings& around)
    : PortWindow(source, power, around),
      PortsOfMachine(around.Ports),
      Controls(MakeSetManualControls(*this)),
      Choices(Controls),
      Chain(
          source, *comPOWER, around.Loop, Events,
          {[this](Reply result, std::int16_t asked) { ShowResult(result, asked); },
           [this](double volts, double amps) { TakeRatings(volts, amps); },
           [this] { Power.FunctionsReset(); }, [this] { Controls.cmdZPS_DLE->setEnabled(true); }}) {
    setObjectName(QStringLiteral("SET_MANUAL"));
    setWindowTitle(QStringLiteral("ZPS설정"));
    ConnectControls();
}

void SET_MANUAL::ConnectControls() {
    const auto run = [this](auto handler) { return [this, handler] { Events.Run(handler); }; };
    for (int number = 1; number <= PortCount; ++number) {
        connect(&Controls.optPORT(number), &QRadioButton::clicked, this,
                run([this, number] { optPORT_Click(number); }));
        Controls.optPORT(number).installEventFilter(this);
    }
    connect(Controls.cmbADDR, &QComboBox::activated, this, run([this] { cmbADDR_Click(); }));
    connect(Controls.cmbMODEL, &QComboBox::activated, this, run([this] { cmbMODEL_Click(); }));
    connect(Controls.cmbMODEL->lineEdit(), &QLineEdit::textEdited, this,
            run([this] { cmbMODEL_Change(); }));
    connect(Controls.cmdZPS_ENQ, &QPushButton::clicked, this, run([this] { Chain.ProbeEnq(); }));
    connect(Controls.cmdZPS_DLE, &QPushButton::clicked, this, run([this] { Chain.ProbeDle(); }));
}

void SET_MANUAL::Form_Load() {
    Chain.ProbeStage = ProbeChain::Loading;
    Source.RxBusy = false;
    FormPort = Source.CommPort;
    Chain.FormAddr = Source.SetAddr;
    const auto error = OpenPort(FormPort);
    Controls.cmbADDR->setCurrentIndex(Source.SetAddr - 1);
    cmbADDR_Click();
    Controls.cmbMODEL->setCurrentIndex(Source.ModelIndex);
    cmbMODEL_Click();
    Controls.optPORT(Source.CommPort).setChecked(true);
    Controls.POWERVoltage->setText(QString::fromStdString(FormatFixed(Source.MaxVolt, 1)));
    Controls.POWERCurrent->setText(QString::fromStdString(FormatFixed(Source.MaxCurr, 1)));
    Chain.ProbeStage = ProbeChain::Idle;
    if (error) {
        ReportLater(*error);
    } else if (Source.SetAddr != Source.CheckedAddr) {
        Chain.StartLater(DelayAtLoad);
    }
}

void SET_MANUAL::optPORT_Click(int number) {
    const auto port = static_cast<std::int16_t>(number);
    // Another port may hold another supply: the old ratings must not meet it.
    if (port != Source.CommPort) Source.CheckedAddr = LinkState::NoAddress;
    Source.CommPort = FormPort = port;
    Source.RxResult = Reply::None;
    Chain.Stop();
    if (const auto error = OpenPort(port)) throw serial::PortError(*error);
    Chain.Restart(DelayAfterChoice);
}

void SET_MANUAL::cmbADDR_Click() {
    constexpr int Lowest = 1;
    const std::string text = Controls.cmbADDR->currentText().toStdString();
    Source.SetAddr = static_cast<std::int16_t>(StrictInteger(text, Lowest, HighestAddress));
    if (Chain.FormAddr != Source.SetAddr) Chain.FormAddr = Source.PowerAddr = Source.SetAddr;
    if (Chain.ProbeStage == ProbeChain::Loading) return;
    Source.RxResult = Reply::None;  // of the supply before
    Chain.Stop();
    if (comPOWER->PortOpen()) Chain.Restart(DelayAfterChoice);
}

void SET_MANUAL::cmbMODEL_Click() {
    Source.ModelIndex = static_cast<std::int16_t>(Controls.cmbMODEL->currentIndex());
    cmbMODEL_Change();
}

void SET_MANUAL::cmbMODEL_Change() {
    Source.ModelName = Controls.cmbMODEL->currentText().toStdString();
    Power.ShowModel();
}

void SET_MANUAL::POWERVoltage_Change() {
    Source.SetMaxVolt(ToSingle(NumberIn(*Controls.POWERVoltage)));
    ShowRatings();
}

void SET_MANUAL::POWERCurrent_Change() {
    Source.SetMaxCurr(ToSingle(NumberIn(*Controls.POWERCurrent)));
    ShowRatings();
}

void SET_MANUAL::ShowRatings() {
    Power.ShowRatings(Fixed(NumberIn(*Controls.POWERVoltage), 0) + QStringLiteral("V/") +
                      Fixed(NumberIn(*Controls.POWERCurrent), 0) + QStringLiteral("A"));
}

void SET_MANUAL::TakeRatings(double volts, double amps) {
    Controls.POWERVoltage->setText(Fixed(volts, 1));
    POWERVoltage_Change();
    Controls.POWERCurrent->setText(Fixed(amps, 1));
    POWERCurrent_Change();
    IdentifyModel();
    ResetStepTable();
}

void SET_MANUAL::IdentifyModel() {
    const double watts = NumberIn(*Controls.POWERVoltage) * NumberIn(*Controls.POWERCurrent);
    if (watts < LeastListedPower) {
        Controls.cmbMODEL->setCurrentIndex(-1);
        Controls.cmbMODEL->setEditText(QStringLiteral("ZPS-") + Fixed(watts, 0));
        cmbMODEL_Change();
    } else {
        Controls.cmbMODEL->setCurrentIndex(ModelIndexOf(watts));
        cmbMODEL_Click();
    }
}

void SET_MANUAL::ResetStepTable() {
    Source.ResetSteps();
    Power.StepTableReset();
}

void SET_MANUAL::ShowResult(Reply result, std::int16_t asked) {
    for (const auto& look : ResultLooks) {
        if (look.Result != result) continue;
        for (QLabel* label : {Controls.lblZPS_ENQ, Controls.lblZPS_DLE}) {
            const bool own =
                label == (asked == ExpectData ? Controls.lblZPS_DLE : Controls.lblZPS_ENQ);
            if (!own && result != Reply::None) continue;
            label->setText(QString::fromUtf8(look.Caption));
            PaintBackground(*label, look.Paint);
        }
    }
}

void SET_MANUAL::PortReturned(bool open) {
    const bool answered = Source.RxResult == Reply::Data || Source.RxResult == Reply::Ack;
    Power.ShowPanels(open && answered);
}

namespace {

// What port `number` would open, or why it would not.
QString DeviceHint(const serial::PortMaker& ports, int number) {
    try {
        const std::string device = ports.DeviceOf(number);
        return device.empty() ? QStringLiteral("장치 없음") : QString::fromStdString(device);
    } catch (const serial::PortError& error) {
        return ReasonText(error.code());
    }
}

}  // namespace

bool SET_MANUAL::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::ToolTip) {
        for (int number = 1; number <= PortCount; ++number) {
            if (watched != &Controls.optPORT(number)) continue;
            Controls.optPORT(number).setToolTip(DeviceHint(PortsOfMachine, number));
        }
    }
    return QWidget::eventFilter(watched, event);
}

}  // namespace zps
