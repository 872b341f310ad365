#include "set_manual/set_manual.h"

#include "controls/colours.h"
#include "controls/error_texts.h"
#include "controls/faded.h"
#include "controls/number_text.h"
#include "controls/show_only.h"
#include "controls/spoken_labels.h"
#include "set_manual/models.h"
#include "set_manual/result_look.h"
#include "source/numbers.h"

#include <QLineEdit>

#include <chrono>

namespace zps {

namespace {

QString NameOf(CheckStage asked) {
    switch (asked) {
        case CheckStage::Remote:
            return QStringLiteral("원격 제어");
        case CheckStage::Initialise:
            return QStringLiteral("초기화");
        case CheckStage::Ratings:
            return QStringLiteral("DATA 확인");
        case CheckStage::Answer:
            break;
    }
    return QStringLiteral("통신 확인");
}

void Show(SignLabel& result, const ResultLook& look) {
    Say(result, QString::fromUtf8(look.Caption));
    result.ShowSign(look.Mark);
    PaintBackground(result, look.Paint);
}

}  // namespace

SET_MANUAL::SET_MANUAL(SOURCE& source, POWER& power, const Surroundings& around)
    : PortWindow(source, power, around),
      PortsOfMachine(around.Ports),
      Controls(MakeSetManualControls(*this)),
      Choices(Controls),
      Chain(source, *comPOWER, around.Loop, Events,
            {[this](Reply result, CheckStage asked) { ShowResult(result, asked); },
             [this](double volts, double amps) { TakeRatings(volts, amps); },
             [this] { Power.FunctionsReset(); }, [this] { Controls.cmdZPS_DLE->setEnabled(true); },
             [this] { ShowProgress(); }}) {
    setObjectName(QStringLiteral("SET_MANUAL"));
    setWindowTitle(QStringLiteral("ZPS설정"));
    ConnectControls();
}

void SET_MANUAL::ConnectControls() {
    const auto run = [this](auto handler) { return [this, handler] { Events.Run(handler); }; };
    for (int number = 1; number <= PortCount; ++number) {
        connect(&Controls.optPORT(number), &QRadioButton::clicked, this,
                run([this, number] { optPORT_Click(number); }));
    }
    connect(Controls.cmbADDR, &QComboBox::activated, this, run([this] { cmbADDR_Click(); }));
    connect(Controls.cmbMODEL, &QComboBox::activated, this, run([this] { cmbMODEL_Click(); }));
    connect(Controls.cmbMODEL->lineEdit(), &QLineEdit::textEdited, this,
            run([this] { cmbMODEL_Change(); }));
    connect(Controls.cmdZPS_ENQ, &QPushButton::clicked, this, run([this] { Chain.ProbeEnq(); }));
    connect(Controls.cmdZPS_DLE, &QPushButton::clicked, this, run([this] { Chain.ProbeDle(); }));
    DeviceWatch.callOnTimeout(this, run([this] { ShowDevices(); }));
}

void SET_MANUAL::Form_Load() {
    Source.WasHandled();
    FormPort = Source.CommPort;
    const auto error = OpenPort(FormPort);
    Controls.cmbADDR->setCurrentIndex(Source.SetAddr - 1);
    Controls.cmbMODEL->setCurrentIndex(Source.ModelIndex);
    cmbMODEL_Click();
    Controls.optPORT(Source.CommPort).setChecked(true);
    Controls.POWERVoltage->ShowValue(FixedText(Source.MaxVolt(), 1));
    Controls.POWERCurrent->ShowValue(FixedText(Source.MaxCurr(), 1));
    if (error) {
        ReportLater(*error);
    } else if (Source.SetAddr != Source.CheckedAddr()) {
        Chain.StartAfterLoad();
    }
    ShowProgress();
    ShowDevices();
    DeviceWatch.start(std::chrono::seconds(2));
}

void SET_MANUAL::optPORT_Click(int number) {
    const auto port = static_cast<std::int16_t>(number);
    BeginChoice();
    // Another port may hold another supply: the old ratings must not meet it.
    if (port != Source.CommPort) {
        Source.Forget();
        Source.ForgetResult();
    }
    Source.CommPort = FormPort = port;
    Power.ConnectionChanged();
    if (const auto error = OpenPort(port)) {
        ShowProgress();
        throw serial::PortError(*error);
    }
    Chain.Restart();
}

void SET_MANUAL::cmbADDR_Click() {
    constexpr int Lowest = 1;
    const std::string text = Controls.cmbADDR->currentText().toStdString();
    BeginChoice();
    Chain.SetAddress(static_cast<std::int16_t>(StrictInteger(text, Lowest, HighestAddress)));
    Power.ConnectionChanged();
    ShowProgress();
    if (comPOWER->PortOpen()) Chain.Restart();
}

// What is shown was the result before the choice.
void SET_MANUAL::BeginChoice() {
    Chain.Stop();
    ShowOnBoth(NoResultLook);
}

void SET_MANUAL::cmbMODEL_Click() {
    Source.ModelIndex = static_cast<std::int16_t>(Controls.cmbMODEL->currentIndex());
    cmbMODEL_Change();
}

void SET_MANUAL::cmbMODEL_Change() {
    Source.ModelName = Controls.cmbMODEL->currentText().toStdString();
    Power.ShowModel();
}

void SET_MANUAL::TakeRatings(double volts, double amps) {
    Controls.POWERVoltage->ShowValue(FixedText(volts, 1));
    Controls.POWERCurrent->ShowValue(FixedText(amps, 1));
    Source.SetMaxVolt(ToSingle(volts));
    Source.SetMaxCurr(ToSingle(amps));
    const QString ratings = QStringLiteral("%1V/%2A").arg(FixedText(volts, 0), FixedText(amps, 0));
    Power.ShowRatings(ratings);
    Power.Happened().Note(EventKind::Checked,
                          QStringLiteral("주소 %1의 정격: %2").arg(Source.SetAddr).arg(ratings));
    IdentifyModel(volts * amps);
    ResetStepTable();
}

void SET_MANUAL::IdentifyModel(double watts) {
    if (watts < LeastListedPower) {
        Controls.cmbMODEL->setCurrentIndex(-1);
        Controls.cmbMODEL->setEditText(QStringLiteral("ZPS-") + FixedText(watts, 0));
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

void SET_MANUAL::ShowResult(Reply result, CheckStage asked) {
    const ResultLook look = LookOf(result);
    Power.Happened().Note(EventKind::Checked,
                          QStringLiteral("주소 %1 %2: %3")
                              .arg(Source.SetAddr)
                              .arg(NameOf(asked), QString::fromUtf8(look.Caption)));
    if (result == Reply::None)
        ShowOnBoth(look);
    else
        Show(asked == CheckStage::Ratings ? *Controls.lblZPS_DLE : *Controls.lblZPS_ENQ, look);
}

void SET_MANUAL::ShowOnBoth(const ResultLook& look) {
    for (SignLabel* result : {Controls.lblZPS_ENQ, Controls.lblZPS_DLE}) Show(*result, look);
}

void SET_MANUAL::EndExchange() {
    CutShort = Chain.Progress().Running() && Source.RxResult() == Reply::None;
    Chain.Stop();
}

void SET_MANUAL::PortReturned(bool open) {
    const bool answered = Source.RxResult() == Reply::Data || Source.RxResult() == Reply::Ack;
    Power.ShowPanels(open && answered, !CutShort);
}

void SET_MANUAL::ShowProgress() {
    const CheckProgress& progress = Chain.Progress();
    Controls.fraSTAGES->Show(progress);
    const QString next = QString::fromUtf8(NextStep(
        {comPOWER->PortOpen(), progress.Running(), Source.RxResult(), Source.RatingsKnown()}));
    Controls.lblNEXT->setText(next);
    // Until they are read again the ratings are those of another supply, or of none.
    for (ReadOut* rating : {Controls.POWERVoltage, Controls.POWERCurrent})
        ShowOnly(*rating, Source.RatingsKnown() ? 1 : Stale);
}

namespace {

void ShowDevice(PortOption& port, int number, const serial::PortMaker& ports) {
    try {
        const QString device = QString::fromStdString(ports.DeviceOf(number));
        const bool there = !device.isEmpty();
        const QString shown = there ? device : QStringLiteral("장치 없음");
        port.ShowDevice(shown, there, shown);
    } catch (const serial::PortError& error) {
        port.ShowDevice(QStringLiteral("열 수 없음"), false, ReasonText(error.code()));
    }
}

}  // namespace

void SET_MANUAL::ShowDevices() {
    for (int number = 1; number <= PortCount; ++number)
        ShowDevice(Controls.optPORT(number), number, PortsOfMachine);
}

}  // namespace zps
