#include "tour/session.h"

#include "power/log/measurement_log.h"
#include "record/record.h"
#include "test/test.h"

#include <QAbstractButton>
#include <QAbstractItemView>
#include <QAction>
#include <QApplication>
#include <QClipboard>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>
#include <QTabBar>

#include <chrono>
#include <iostream>
#include <utility>

namespace zps::tour {

using namespace std::chrono_literals;

namespace {

constexpr int Address = 1;
constexpr int OtherAddress = 7;
constexpr int OtherVolts = 20;
constexpr int OtherAmps = 5;
constexpr int SetOverVoltage = 5;  // the code of a trip
const QString GoodData = QStringLiteral("통신ok = DATA수신!!!");

std::vector<simulator::SupplyOptions> Supplies() {
    return {{}, {.Address = OtherAddress, .Volts = OtherVolts, .Amps = OtherAmps}};
}

void Click(QWidget& window, const char* button) {
    QTest::mouseClick(window.findChild<QPushButton*>(QLatin1String(button)), Qt::LeftButton);
}

}  // namespace

QPalette DarkDesktop() {
    QPalette dark(QColor(53, 53, 53), QColor(45, 45, 45));
    dark.setColor(QPalette::Base, QColor(35, 35, 35));
    QApplication::style()->polish(dark);  // as it does with a desktop's own
    return dark;
}

Session::Session(Guide::Look look, QSize size)
    : Wire(Supplies()),
      Link(1, Wire.DeviceName()),
      Panel(Machine.All()),
      Hands(Panel, std::move(look)),
      Size(size) {
    std::cout << "a simulated supply of 150 V and 10 A answers on " << Wire.DeviceName()
              << std::endl;
}

bool Session::Work() {
    Connect();
    ProgramSteps();
    RunOutput();
    LoseTheLine();
    Trip();
    ReadTheRecord();
    RunSequence();
    TestLink();
    ShowAbout();
    ChooseAnotherAddress();
    FailTheCheck();
    ComeBack();
    PasteTable();
    End();
    return Hands.AllSeen();
}

QString Session::Text(const QWidget& window, const char* label) {
    return window.findChild<QLabel*>(QLatin1String(label))->text();
}

QString Session::Text(const char* label) {
    return Text(Panel.Main(), label);
}

SET_MANUAL& Session::OpenSettings() {
    Hands.Get<QAction>("mnuSET_MANU").trigger();
    return *Panel.Settings();
}

void Session::CloseSettings() {
    QTest::keyClick(Panel.Settings(), Qt::Key_Escape);
}

// On a busy machine an answer may come too late for the check; a person makes it again then.
bool Session::RatingsCome() {
    const QString answer = Text(*Panel.Settings(), "lblZPS_ENQ");
    const QString ratings = Text(*Panel.Settings(), "lblZPS_DLE");
    if ((answer + ratings).contains(QStringLiteral("에라"))) ChooseAddress(Address);
    return ratings == GoodData;
}

void Session::Connect() {
    Panel.StartUp();
    if (Size.isValid()) Panel.Main().resize(Size);
    SET_MANUAL& settings = *Panel.Settings();
    Hands.Expect("the settings window stands above the disabled main window", [&] {
        return settings.isVisible() && settings.isEnabled() && !Panel.Main().isEnabled();
    });
    Hands.LookAt(settings, "01-settings-checking");
    Hands.Expect("the link is good (ACK)",
                 [&] { return Text(settings, "lblZPS_ENQ") == "통신ok = ACK수신!!!"; });
    Hands.Expect("the ratings are read (DATA)", [&] { return RatingsCome(); });
    Hands.LookAt(Panel.Main(), "02-main-disabled");
    Hands.LookAt(settings, "03-settings");
    CloseSettings();
    Hands.Expect("the panel is open for a ZPS-1500, 150V/10A", [&] {
        return Panel.Main().isEnabled() && Text("lblZPS_MODEL") == "ZPS-1500" &&
               Text("lblSPEC_VA") == "150V/10A" &&
               Hands.Get<QWidget>("frmPOWERDISPLAY").isVisible();
    });
    Hands.Expect("step 00 has gone to the supply", [&] { return Text("Rem_Loc") == "REMOTE"; });
    Hands.LookAt(Panel.Main(), "04-main");
}

void Session::ProgramSteps() {
    Hands.Bring(
        "12.5 V is stored in step 00", [&] { Hands.Enter("txPVOLT_0", "12.5"); },
        [&] { return Wire.StateOf(Address).Steps[0].VoltRaw == 1250 && IsSent(0); });
    Select(1);
    Hands.Type("txPVOLT_1", "24");
    Hands.LookAt(Panel.Main(), "05-row-locked");
    Hands.Bring(
        "24 V is stored in step 01", [&] { Hands.Enter("txPVOLT_1", "24"); },
        [&] { return Wire.StateOf(Address).Steps[1].VoltRaw == 2400 && IsSent(1); });
    Hands.AnswerBox("06-range-error", Qt::Key_Return);
    Hands.Enter("txPVOLT_1", "151");
    Hands.Expect("151 V is refused",
                 [&] { return Hands.BoxText().contains("설정값 범위=0~150V"); });
    QTest::keyClick(&Hands.Get<QLineEdit>("txPVOLT_1"), Qt::Key_Escape);
    Select(0);
    Hands.LookAt(Panel.Main(), "07-steps");
}

void Session::RunOutput() {
    const auto& volts = Hands.Get<QLineEdit>("txtVOLT");
    Hands.Bring(
        "the remote button puts the supply under remote control",
        [&] { Hands.Click("cmdPREMOTE"); },
        [&] { return Text("lblPREMOTE") == "RS232" && !Panel.Shared().RxBusy(); });
    SwitchOutput(true);
    Hands.Expect("12.5 V are read back", [&] { return volts.text() == "12.500"; });
    const auto& log = *Panel.Main().findChild<MeasurementLog*>();
    Hands.Expect("twenty samples are in the log", [&] { return log.RowCount() >= 22; });
    Select(1);
    Hands.Expect("the step has changed under load: 24 V", [&] { return volts.text() == "24.00"; });
    const int samples = log.RowCount();
    Hands.Expect("samples of the new step follow", [&] { return log.RowCount() >= samples + 8; });
    Hands.LookAt(Panel.Main(), "08-running");
    auto& tabs = Hands.Get<QTabBar>("tabCURVE");
    QTest::mouseClick(&tabs, Qt::LeftButton, {}, tabs.tabRect(1).center());
    auto& curve = Hands.Get<CurveView>("fraCURVE");
    for (const auto key : {Qt::Key_Home, Qt::Key_Space, Qt::Key_End, Qt::Key_Space})
        QTest::keyClick(&curve, key);
    Hands.Expect("the whole run is seen, and what its samples come to",
                 [&] { return curve.SpokenText().contains("Wh"); });
    Hands.LookAt(Panel.Main(), "08-running-whole");
    tabs.setCurrentIndex(0);
}

void Session::LoseTheLine() {
    Wire.OrderFault({simulator::FaultKind::Silent});
    Hands.Expect("the supply has been silent for three seconds and more",
                 [&] { return Text("lblPOLL").startsWith("응답 없음"); });
    Hands.LookAt(Panel.Main(), "09-silent");
    Wire.StopFaults();
    const auto& log = *Panel.Main().findChild<MeasurementLog*>();
    const int samples = log.RowCount();
    Hands.Expect("samples go on by themselves", [&] { return log.RowCount() >= samples + 3; });
}

void Session::Trip() {
    Hands.AnswerBox("10-over-voltage", Qt::Key_Return);
    Wire.Trip(Address, SetOverVoltage);
    Hands.Expect("an over-voltage trip is reported",
                 [&] { return Hands.BoxText() == "SET OVER VOLTAGE!!!"; });
    Hands.Expect("the panel shows the output off", [&] { return Text("Output_ONOFF") == "OFF"; });
    Hands.LookAt(Panel.Main(), "11-tripped");
    SwitchOutput(true);
    SwitchOutput(false);
    Hands.Expect("the table is free again",
                 [&] { return Hands.Get<QWidget>("txPTIME_1").isEnabled(); });
}

bool Session::IsSent(int step) {
    return Panel.Shared().StepFlag(step) && !Panel.Shared().RxBusy();
}

void Session::Select(int step) {
    Hands.Bring(
        QStringLiteral("step 0%1 is selected").arg(step),
        [&] {
            // A click on the selected step sends nothing.
            if (Text("txtSTEP") == QStringLiteral("0%1").arg(step))
                Hands.Click(qPrintable(QStringLiteral("txPSTEP_%1").arg(1 - step)));
            Hands.Click(qPrintable(QStringLiteral("txPSTEP_%1").arg(step)));
        },
        [&] { return Wire.StateOf(Address).SelectedStep == step && IsSent(step); });
}

void Session::SwitchOutput(bool on) {
    const auto shown = on ? QStringLiteral("ON") : QStringLiteral("OFF");
    Hands.Bring(
        on ? "the output is on" : "the output is off",
        [&] {
            if (Text("Output_ONOFF") != shown) Hands.Click("cmdOUTPUT");
        },
        [&] { return Wire.StateOf(Address).Output == on && Text("Output_ONOFF") == shown; });
}

// It stays open beside all that follows.
void Session::ReadTheRecord() {
    Hands.Get<QAction>("mnuRECORD").trigger();
    RECORD& record = *Panel.Record();
    const auto rows = [&](const char* table) {
        return record.findChild<QAbstractItemView*>(QLatin1String(table))->model()->rowCount();
    };
    Hands.Expect("the record shows what has gone over the line",
                 [&] { return record.isVisible() && rows("grdLINE") > 100; });
    Hands.LookAt(record, "11a-record");
    const int all = rows("grdLINE");
    QTest::mouseClick(record.findChild<QAbstractButton*>("optERRORS"), Qt::LeftButton);
    Hands.Expect("the silence is among the errors",
                 [&] { return rows("grdLINE") > 5 && rows("grdLINE") < all / 2; });
    Hands.LookAt(record, "11b-record-errors");
    record.ShowHistory();
    Hands.Expect("the history knows the trip", [&] { return rows("grdHISTORY") > 8; });
    Hands.LookAt(record, "11c-history");
}

void Session::RunSequence() {
    Hands.Bring(
        "step 01 lasts a second", [&] { Hands.Enter("txPTIME_1", "1"); },
        [&] { return Wire.StateOf(Address).Steps[1].StepTime == 1s && IsSent(1); });
    Select(0);
    Hands.Bring(
        "step 00 lasts a second", [&] { Hands.Enter("txPTIME_0", "1"); },
        [&] { return Wire.StateOf(Address).Steps[0].StepTime == 1s && IsSent(0); });
    Hands.Enter("txtPAUTOSTEP", "0001");
    Hands.Enter("txtPAUTOCOUNT", "2");
    Hands.Bring(
        "automatic run is on",
        [&] {
            if (Text("Auto_ONOFF") != "ON") Hands.Click("cmdAUTO");
        },
        [&] { return Text("Auto_ONOFF") == "ON" && !Panel.Shared().RxBusy(); });
    Hands.AnswerBox("13-end-of-run", Qt::Key_Return);
    SwitchOutput(true);
    Hands.Expect("the run is at step 01", [&] { return Text("txtSTEP") == "01"; });
    Hands.LookAt(Panel.Main(), "12-automatic-run");
    Hands.Expect("the end of the run is reported",
                 [&] { return Hands.BoxText() == "Auto Test Ending!!!"; });
    auto& grid = *Panel.Main().findChild<LogGrid*>();
    QTest::keyClick(&grid, Qt::Key_Home);
    QTest::keyClick(&grid, Qt::Key_End, Qt::ShiftModifier);
    Hands.Expect("the selected rows are summed up", [&] {
        return Panel.Main().findChild<MeasurementLog*>()->SelectedSums().Samples > 0;
    });
    Hands.LookAt(Panel.Main(), "14-after-the-run");
}

void Session::TestLink() {
    Hands.Get<QAction>("mnuTEST").trigger();
    TEST& test = *Panel.Test();
    Hands.LookAt(test, "15-test-before");
    Hands.Expect("the record is open beside it",
                 [&] { return Panel.Record()->isVisible() && Panel.Record()->isEnabled(); });
    Hands.Bring(
        "the test window hears an acknowledgement", [&] { Click(test, "cmdENQ"); },
        [&] { return Text(test, "lblRESULT") == "GOOD  ENQ"; });
    Hands.Bring(
        "the test window reads the rated voltage, 1500 tenths of a volt",
        [&] { Click(test, "cmdDLE"); },
        [&] {
            return Text(test, "lblRESULT") == "GOOD  DLE" && Text(test, "lblVOLTAGE") == "1500";
        });
    Hands.LookAt(test, "16-test");
    Wire.OrderFault({simulator::FaultKind::Garble});
    Click(test, "cmdENQ");
    Hands.Expect("a damaged reply is an error",
                 [&] { return Text(test, "lblRESULT").startsWith("ERROR"); });
    Hands.LookAt(test, "17-test-error");
    Wire.StopFaults();
    QTest::keyClick(&test, Qt::Key_Escape);
    Hands.Expect("the main window has the port again",
                 [&] { return Panel.Main().isEnabled() && Panel.Test() == nullptr; });
}

void Session::ShowAbout() {
    Hands.Get<QAction>("mnuHELP").trigger();
    auto* about = Panel.Main().findChild<QDialog*>("frmAbout");
    Hands.Expect("the program tells its version", [about] {
        return about != nullptr && about->isVisible() &&
               Text(*about, "lblVersion").contains(QApplication::applicationVersion());
    });
    if (about == nullptr) return;
    Hands.LookAt(*about, "18-about");
    about->close();
}

void Session::ChooseAddress(int address) {
    auto& list = *Panel.Settings()->findChild<QComboBox*>("cmbADDR");
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(address - 1, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
}

// It answers, and the window is closed before its ratings have come.
void Session::ChooseAnotherAddress() {
    SET_MANUAL& settings = OpenSettings();
    ChooseAddress(OtherAddress);
    Hands.Expect("another address answers",
                 [&] { return Text(settings, "lblZPS_ENQ") == "통신ok = ACK수신!!!"; });
    CloseSettings();
    Hands.Expect("nothing is told of a supply of unknown ratings",
                 [&] { return Hands.Get<QLineEdit>("txtVOLT").text() == "----"; });
    Hands.LookAt(Panel.Main(), "19-ratings-unknown");
}

void Session::FailTheCheck() {
    SET_MANUAL& settings = OpenSettings();
    Wire.OrderFault({simulator::FaultKind::Silent});
    ChooseAddress(OtherAddress + 1);
    Hands.Expect("an address where nobody is does not answer",
                 [&] { return Text(settings, "lblZPS_ENQ") == "통신에라 = 응답무!!!"; });
    Hands.LookAt(settings, "20-settings-failed");
    CloseSettings();
    Hands.Expect("the panel is closed", [&] {
        return Panel.Main().isEnabled() && !Hands.Get<QWidget>("frmPOWERDISPLAY").isVisible();
    });
    Hands.LookAt(Panel.Main(), "21-failed-check");
    Wire.StopFaults();
}

void Session::ComeBack() {
    OpenSettings();
    ChooseAddress(Address);
    Hands.Expect("the first address answers again", [&] { return RatingsCome(); });
    CloseSettings();
    Hands.Expect("the panel is open again", [&] {
        return Panel.Main().isEnabled() && Hands.Get<QWidget>("frmPOWERDISPLAY").isVisible();
    });
}

void Session::PasteTable() {
    Hands.Get<QAction>("mnuData_Copy_Range").trigger();
    auto* range = Panel.Main().findChild<QDialog*>("COPY_RANGE");
    Hands.LookAt(*range, "22-copy-range");
    range->close();
    QString table;
    for (int step = 0; step < StepCount; ++step)
        table += QStringLiteral("%1\t%2\t5\t1\t0\t160\n").arg(step).arg(step + 1);
    QApplication::clipboard()->setText(QStringLiteral("0\t12,5\t5\t1\t0\t160"));
    Hands.AnswerBox("23-paste-refused", Qt::Key_Return);
    Hands.Get<QAction>("mnuData_Paste").trigger();
    Hands.Expect("a cell that is no number is named",
                 [&] { return Hands.BoxText().startsWith("1행 VOLTAGE(V): 12,5"); });
    QApplication::clipboard()->setText(table);
    Hands.Get<QAction>("mnuData_Paste").trigger();
    Hands.Expect("a hundred steps are pasted",
                 [&] { return Hands.Get<QLineEdit>("txtVOLT").text() == "1.00"; });
    Hands.LookAt(Panel.Main(), "24-pasted");
    Hands.Get<QAction>("mnuData_Send").trigger();
    Hands.Expect("they are being sent", [&] { return Text("txtSTEP") == "05"; });
    if (auto* box = Panel.Main().findChild<QDialog*>("SEND_ALL")) {
        Hands.LookAt(*box, "25-sending");
        QTest::mouseClick(box->findChild<QPushButton*>(), Qt::LeftButton);
    }
    Hands.Expect("no more is sent, and the first step is selected again",
                 [&] { return Text("txtSTEP") == "00" && Text("lblTABLE").contains("송신됨"); });
}

void Session::End() {
    Hands.AnswerBox("26-end", Qt::Key_Y);
    Panel.Main().close();
    Hands.Expect("the program ends and leaves the supply in local",
                 [&] { return !Panel.Main().isVisible() && !Wire.StateOf(Address).Remote; });
}

}  // namespace zps::tour
