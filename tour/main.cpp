// The guided session: a day's work with the panel, on a supply of 150 V and 10 A that is simulated
// on a real serial line. Exit code 0 only if everything came out.
#include "app/real_surroundings.h"
#include "test/test.h"
#include "tour/guide.h"

#include <QAction>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTemporaryDir>

#include <iostream>

namespace {

using zps::simulator::Line;
using zps::tour::Guide;

constexpr int Address = 1;

void Connect(zps::Program& program, Guide& guide) {
    program.StartUp();
    program.Main().resize(1300, 720);  // an off-screen display is smaller than people's
    zps::SET_MANUAL& settings = *program.Settings();
    const auto caption = [&settings](const char* label) {
        return settings.findChild<QLabel*>(QLatin1String(label))->text();
    };
    guide.Expect("the settings window stands above the disabled main window", [&] {
        return settings.isVisible() && settings.isEnabled() && !program.Main().isEnabled();
    });
    guide.Expect("the link is good (ACK)",
                 [&] { return caption("lblZPS_ENQ") == "통신ok = ACK수신!!!"; });
    guide.Expect("the ratings are read (DATA)",
                 [&] { return caption("lblZPS_DLE") == "통신ok = DATA수신!!!"; });
    guide.Picture(program.Main(), "1-main-disabled");
    guide.Picture(settings, "2-settings");
    QTest::keyClick(&settings, Qt::Key_Escape);
    guide.Expect("the panel is open for a ZPS-1500, 150V/10A", [&] {
        return program.Main().isEnabled() &&
               guide.Get<QLabel>("lblZPS_MODEL").text() == "ZPS-1500" &&
               guide.Get<QLabel>("lblSPEC_VA").text() == "150V/10A" &&
               guide.Get<QWidget>("frmPOWERDISPLAY").isVisible();
    });
    guide.Expect("step 00 has gone to the supply",
                 [&] { return guide.Get<QLabel>("Rem_Loc").text() == "REMOTE"; });
    guide.Picture(program.Main(), "3-main");
}

void ProgramSteps(zps::Program& program, Guide& guide, Line& line) {
    guide.Enter("txPVOLT_0", "12.5");
    guide.Expect("12.5 V is stored in step 00",
                 [&] { return line.StateOf(Address).Steps[0].VoltRaw == 1250; });
    guide.Click("txPSTEP_1");
    guide.Expect("step 01 is uploaded and selected",
                 [&] { return line.StateOf(Address).SelectedStep == 1; });
    guide.Enter("txPVOLT_1", "24");
    guide.Expect("24 V is stored in step 01",
                 [&] { return line.StateOf(Address).Steps[1].VoltRaw == 2400; });
    guide.AnswerBox("4-range-error", Qt::Key_Return);
    guide.Enter("txPVOLT_1", "151");
    guide.Expect("151 V is refused",
                 [&] { return guide.BoxText().contains("설정값 범위=0~150V"); });
    QTest::keyClick(&guide.Get<QLineEdit>("txPVOLT_1"), Qt::Key_Escape);
    guide.Click("txPSTEP_0");
    guide.Expect("step 00 is selected again",
                 [&] { return line.StateOf(Address).SelectedStep == 0; });
    guide.Picture(program.Main(), "5-steps");
}

void RunOutput(zps::Program& program, Guide& guide, Line& line) {
    const auto& volts = guide.Get<QLineEdit>("txtVOLT");
    guide.Click("cmdPREMOTE");
    guide.Expect("the remote button puts the supply under remote control",
                 [&] { return guide.Get<QLabel>("lblPREMOTE").text() == "RS232"; });
    guide.Click("cmdOUTPUT");
    guide.Expect("the output is on", [&] { return line.StateOf(Address).Output; });
    guide.Expect("12.5 V are read back", [&] { return volts.text() == "12.500"; });
    const auto& log = *program.Main().findChild<zps::MeasurementLog*>();
    guide.Expect("twenty samples are in the log", [&] { return log.RowCount() >= 22; });
    guide.Click("txPSTEP_1");
    guide.Expect("the step changes under load: 24 V", [&] { return volts.text() == "24.00"; });
    const int samples = log.RowCount();
    guide.Expect("samples of the new step follow", [&] { return log.RowCount() >= samples + 8; });
    guide.Picture(program.Main(), "6-running");
    guide.AnswerBox("7-over-voltage", Qt::Key_Return);
    constexpr int SetOverVoltage = 5;
    line.Trip(Address, SetOverVoltage);
    guide.Expect("an over-voltage trip is reported",
                 [&] { return guide.BoxText() == "SET OVER VOLTAGE!!!"; });
    guide.Expect("the panel shows the output off",
                 [&] { return guide.Get<QLabel>("Output_ONOFF").text() == "OFF"; });
    guide.Click("cmdOUTPUT");
    guide.Expect("the output is on again", [&] { return line.StateOf(Address).Output; });
    guide.Click("cmdOUTPUT");
    guide.Expect("the output is off", [&] { return !line.StateOf(Address).Output; });
}

void TestLink(zps::Program& program, Guide& guide) {
    guide.Get<QAction>("mnuTEST").trigger();
    zps::TEST& test = *program.Test();
    const auto text = [&test](const char* label) {
        return test.findChild<QLabel*>(QLatin1String(label))->text();
    };
    QTest::mouseClick(test.findChild<QPushButton*>("cmdENQ"), Qt::LeftButton);
    guide.Expect("the test window hears an acknowledgement",
                 [&] { return text("lblRESULT") == "GOOD  ENQ"; });
    QTest::mouseClick(test.findChild<QPushButton*>("cmdDLE"), Qt::LeftButton);
    guide.Expect("the test window reads the rated voltage, 1500 tenths of a volt",
                 [&] { return text("lblRESULT") == "GOOD  DLE" && text("lblVOLTAGE") == "1500"; });
    guide.Picture(test, "8-test");
    QTest::keyClick(&test, Qt::Key_Escape);
    guide.Expect("the main window has the port again",
                 [&] { return program.Main().isEnabled() && program.Test() == nullptr; });
}

void ShowAbout(zps::Program& program, Guide& guide) {
    guide.Get<QAction>("mnuHELP").trigger();
    auto* about = program.Main().findChild<QDialog*>("frmAbout");
    guide.Expect("the program tells its version", [about] {
        return about != nullptr && about->isVisible() &&
               about->findChild<QLabel*>("lblVersion")
                   ->text()
                   .contains(QApplication::applicationVersion());
    });
    if (about != nullptr) guide.Picture(*about, "9-about");
}

void End(zps::Program& program, Guide& guide, Line& line) {
    guide.AnswerBox("10-end", Qt::Key_Y);
    program.Main().close();
    guide.Expect("the program ends and leaves the supply in local",
                 [&] { return !program.Main().isVisible() && !line.StateOf(Address).Remote; });
}

}  // namespace

int main(int argc, char** argv) {
    QTemporaryDir links;  // a person's own links COMn are not touched
    qputenv("XDG_RUNTIME_DIR", links.path().toUtf8());
    QApplication application(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    zps::DressApplication();
    Line line(std::vector<zps::simulator::SupplyOptions>(1));
    const zps::simulator::PortLink link(1, line.DeviceName());
    std::cout << "a simulated supply of 150 V and 10 A answers on " << line.DeviceName()
              << std::endl;
    zps::RealSurroundings machine;
    zps::Program program(machine.All());
    Guide guide(program, QStringLiteral("out/tour"));
    Connect(program, guide);
    ProgramSteps(program, guide, line);
    RunOutput(program, guide, line);
    TestLink(program, guide);
    ShowAbout(program, guide);
    End(program, guide, line);
    std::cout << (guide.AllSeen() ? "The guided session came out as it should."
                                  : "The guided session did not come out as it should.")
              << std::endl;
    return guide.AllSeen() ? 0 : 1;
}
