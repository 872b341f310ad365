// The step table by clipboard, and sending what is not sent, on the real window.
#include "power/steps/copy_range.h"
#include "source/numbers.h"
#include "tests/power/run_panel.h"

#include <QClipboard>
#include <QContextMenuEvent>
#include <QLocale>
#include <QMenu>
#include <QProcess>
#include <QProgressDialog>
#include <QStandardPaths>
#include <QTemporaryDir>

namespace zps::tests {
namespace {

const QString Captions = "STEP\tVOLTAGE(V)\tCURRENT(A)\tTIME(sec)\tSLOPE(sec)\tO.V.P(V)\n";

void PutOnClipboard(const QString& text) {
    QGuiApplication::clipboard()->setText(text);
}
QString Clipboard() {
    return QGuiApplication::clipboard()->text();
}

class TableMenu : public StepTest {
  protected:
    void SetUp() override {
        StepTest::SetUp();
        Frames();
    }
    void Paste(const QString& text) {
        PutOnClipboard(text);
        Choose("mnuData_Paste");
    }
    std::string Row(int row) {
        QStringList texts;
        for (const char* name : {"txPVOLT", "txPCURR", "txPTIME", "txPSLOPE", "txPOVP"})
            texts += InRow(row, name).text();
        return texts.join(' ').toStdString();
    }
    std::string LastEvent() {
        const History& past = Main().Happened();
        const PanelEvent& last = past.Get(past.End() - 1);
        return (NameOf(last.Kind) + ": " + last.Text).toStdString();
    }
    std::string Told() { return Text("lblTABLE").toStdString(); }
    QString LastBox() {
        if (Boxes.Shown.empty()) return {};
        const Message last = std::exchange(Boxes.Shown, {}).back();
        return last.Title + ": " + last.Text;
    }
};

TEST_F(TableMenu, CopiesAllVisibleOrARangeOfStepsTheSameInEveryLocale) {
    const QString row = "\t0.00\t10.00\t0.00000\t0.00000\t163.5\n";
    QLocale::setDefault(QLocale::German);
    ASSERT_TRUE(SwitchOn());  // which does not hinder it
    Bar().setValue(5);
    Choose("mnuData_Copy_Visible");
    EXPECT_TRUE(Clipboard().startsWith(Captions + "05" + row + "06" + row));
    EXPECT_EQ(Clipboard().count('\n'), 8);
    EXPECT_EQ(Told(), "단계 05–11 복사됨");
    Choose("mnuData_Copy_All");
    EXPECT_TRUE(Clipboard().startsWith(Captions + "00" + row));
    EXPECT_TRUE(Clipboard().endsWith("\n99" + row));
    Choose("mnuData_Copy_Range");
    auto& ask = *Main().findChild<CopyRange*>();
    for (const Qt::Key key : {Qt::Key_9, Qt::Key_Tab, Qt::Key_8, Qt::Key_Return}) {
        QTest::keyClick(ask.focusWidget(), Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(ask.focusWidget(), key);
    }
    EXPECT_FALSE(ask.isVisible());
    EXPECT_EQ(Clipboard().toStdString(), (Captions + "08" + row + "09" + row).toStdString());
    QLocale::setDefault(QLocale::C);
}

TEST_F(TableMenu, PastesAllOrNothingSendsNothingAndTakesItBack) {
    Upload(1);
    Upload(0);
    const std::string before = Row(1);
    Paste("01\t12.5\t1.5\t2\t0.1\t160\n02\t12.5\t11\t0\t0\t160\n");
    EXPECT_EQ(LastBox(),
              "단계표 붙여넣기: 2행 CURRENT(A): 11\n설정값 범위: 0 ~ 10 A\n"
              "아무 값도 바꾸지 않았습니다.");
    EXPECT_EQ(Row(1), before);
    EXPECT_TRUE(Source().StepFlag(1));
    Bar().setValue(1);
    Paste("12.5\t1.5\t2\t0.1\t160\n20\t1.5\t2\t0.1\t160\n");
    EXPECT_EQ(Told(), "2단계 붙여넣음: 2단계 바뀜, 송신 안 함");
    EXPECT_EQ(Row(0), "12.50 1.500 2.00000 0.10000 160.0");
    EXPECT_FALSE(Source().StepFlag(1));
    EXPECT_TRUE(Source().StepFlag(0));
    EXPECT_EQ(StepButton(0).accessibleDescription(), "미송신, 바뀐 값을 보내지 않음");
    Choose("mnuData_Undo");
    EXPECT_EQ(Row(0), before);
    EXPECT_EQ(Told(), "붙여넣기 되돌림: 2단계 바뀜, 송신 안 함");
    Choose("mnuData_Undo");
    EXPECT_EQ(LastBox(), "붙여넣기 되돌리기: 되돌릴 붙여넣기가 없습니다.");
    Paste("");
    EXPECT_EQ(LastBox(), "단계표 붙여넣기: 클립보드에 단계표가 없습니다.");
    Paste(QString("1\t1\t0\t0\t160\n").repeated(200'000));
    EXPECT_TRUE(LastBox().contains("훨씬 큽니다"));
    Paste("00\t7\t1.5\t2\t0.1\t160\n");  // the selected step
    EXPECT_EQ(Texts(*this, {"txtVOLT", "txtCURR"}), "7.00 1.500");
    EXPECT_TRUE(Frames().empty());
    ASSERT_TRUE(SwitchOn());
    EXPECT_TRUE(Text("lblNOTICE").contains("단계 00에 송신하지 않은 값이 있지만 출력을 켰습니다."));
}

TEST_F(TableMenu, IsRefusedWithTheReasonAndCommitsAnOpenEntryFirst) {
    const QString good = "3\t12.5\t1.5\t2\t0.1\t160";
    const auto refused = [&](const QString& reason) {
        Paste(good);
        EXPECT_TRUE(LastBox().contains(reason)) << reason.toStdString();
        Choose("mnuData_Send");
        EXPECT_TRUE(LastBox().contains(reason)) << reason.toStdString();
        EXPECT_EQ(Source().StepVolt(3), "0.00");
    };
    Type("txPVOLT_0", "151");
    refused("VOLTAGE SETTING값 범위 초과");
    ASSERT_TRUE(WaitFor([&] { return InRow(0, "txPVOLT").hasFocus(); }));
    Type("txPVOLT_0", "7");
    Paste(good);
    EXPECT_EQ(Source().StepVolt(0) + ' ' + Source().StepVolt(3), "7.00 12.50");
    EXPECT_EQ(Frames().size(), 1U);  // of the entry
    Choose("mnuData_Undo");
    InRow(4, "txPVOLT").setEnabled(true);
    Enter("txPVOLT_4", "5");
    refused("단계 04의 값을 고치는 중");
    Upload(4);
    ASSERT_TRUE(SwitchOn());
    for (const auto& [menu, what] : {std::pair{"mnuData_Paste", "단계표 붙여넣기"},
                                     {"mnuData_Undo", "붙여넣기 되돌리기"},
                                     {"mnuData_Send", "단계 송신"}}) {
        Choose(menu);
        EXPECT_TRUE(Text("lblNOTICE").contains(QString(what) + ": 출력이 켜져 있습니다."));
    }
    EXPECT_TRUE(Boxes.Shown.empty());  // a box would stop the polls
    EXPECT_EQ(Source().StepVolt(3), "0.00");
    ASSERT_TRUE(Press("cmdOUTPUT"));
    Source().Forget();
    refused("DATA 확인");
    Source().ReadFrom(1, Line().Folder + "1");
    ASSERT_TRUE(Press("cmdPREMOTE"));
    ASSERT_TRUE(WaitFor([&] { return Source().StepFlag(0); }) && Settle());
    ASSERT_TRUE(Press("cmdPREMOTE"));
    refused("LOCAL");
    auto& barred = InRow(3, "txPVOLT");
    const QAction* offered = nullptr;
    QTimer::singleShot(0, [&] {
        auto* menu = qobject_cast<QMenu*>(QApplication::activePopupWidget());
        if (menu == nullptr) return;
        offered = menu->actions().value(0);
        menu->close();
    });
    QContextMenuEvent ask(QContextMenuEvent::Mouse, {5, 5}, barred.mapToGlobal(QPoint(5, 5)));
    QApplication::sendEvent(&barred, &ask);
    ASSERT_TRUE(!barred.isEnabled() && offered != nullptr);
    EXPECT_TRUE(offered->menu()->actions().contains(&Get<QAction>("mnuData_Copy_All")));
    Choose("mnuData_Copy_All");
    EXPECT_TRUE(Clipboard().startsWith(Captions));
    Boxes.WhileUp = [&](const Message&) { Paste(good); };
    Choose("mnuData_Send");
    EXPECT_EQ(Boxes.Shown.size(), 1U);  // nothing gets past a box
}

TEST_F(TableMenu, WhileStepsAreSentTheWindowTakesNothingButACancel) {
    Upload(2);
    Paste("1\t1\t1\t0\t0\t160\n3\t1\t1\t0\t0\t160\n5\t1\t1\t0\t0\t160\n");
    Choose("mnuData_Send");
    auto* box = static_cast<QProgressDialog*>(nullptr);
    ASSERT_TRUE(WaitFor([&] { return (box = Main().findChild<QProgressDialog*>()) != nullptr; }));
    EXPECT_TRUE(WaitFor([&] { return box->labelText() == "단계 01 송신 중 (1/3)"; }));
    Click("cmdOUTPUT");
    Choose("mnuData_Paste");
    QTest::keyClick(&Main(), Qt::Key_F9);
    EXPECT_FALSE(box->findChild<QPushButton*>()->hasFocus());  // some desktops press it by Enter
    QTest::keyClick(box->focusWidget(), Qt::Key_Return);
    EXPECT_FALSE(box->wasCanceled());
    QTest::mouseClick(box->findChild<QPushButton*>(), Qt::LeftButton);
    ASSERT_TRUE(WaitFor([&] { return Main().findChild<QProgressDialog*>() == nullptr; }));
    EXPECT_EQ(Sent(), "UU");
    EXPECT_EQ(Told(), "취소됨, 1/3단계 송신됨");
    EXPECT_EQ(LastEvent(), "조작: 단계 송신: 취소됨, 1/3단계 송신됨");
    EXPECT_EQ(Text("txtSTEP"), "02");
    Line().Answer({1, 21, 22});
    Choose("mnuData_Send");
    ASSERT_TRUE(WaitFor([&] { return !Boxes.Shown.empty(); }));
    EXPECT_EQ(LastBox(), "단계 송신: 단계 03: 전원 장치가 거부했습니다.\n0/2단계 송신됨");
    EXPECT_EQ(LastEvent(), "주의: 단계 송신: 단계 03: 전원 장치가 거부했습니다. 0/2단계 송신됨");
    Choose("mnuData_Send");
    ASSERT_TRUE(WaitFor([&] { return Told() == "2/2단계 송신됨"; }));
    EXPECT_EQ(LastEvent(), "조작: 단계 송신: 2/2단계 송신됨");
    ASSERT_TRUE(Settle());
    ASSERT_TRUE(SwitchOn());
}

TEST_F(TableMenu, ClosingTheWindowWhileStepsAreSentAsksAndStopsTheSending) {
    Paste("1\t1\t1\t0\t0\t160\n3\t1\t1\t0\t0\t160\n5\t1\t1\t0\t0\t160\n");
    Choose("mnuData_Send");
    ASSERT_TRUE(AreSent(1));
    Boxes.WhileUp = [&](const Message& message) {
        EXPECT_EQ(message.Text, "프로그램을 종료합니다.");
        EXPECT_EQ(message.Meaning,
                  "단계를 송신하는 중입니다. 종료하면 남은 단계는 보내지 않습니다.");
        const auto sent = Line().Written().size();
        Main().close();  // asks once
        Click("cmdOUTPUT");
        QTest::qWait(50);
        EXPECT_EQ(Line().Written().size(), sent);  // it waits for the answer
    };
    Main().close();
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    ASSERT_TRUE(AreSent(2));  // it goes on
    Click("cmdOUTPUT");
    Sent();
    Boxes.Answers = {Answer::Yes};
    Main().close();
    EXPECT_FALSE(Main().isVisible() || Main().findChild<QProgressDialog*>()->isVisible());
    EXPECT_EQ(Sent(), "l");
    EXPECT_FALSE(AreSent(1, 300ms));
}

// A hundred steps, no two of them and no two of their values alike.
QString HundredSteps() {
    QString text;
    for (int step = 0; step < StepCount; ++step) {
        text += QString("%1\t%2\t%3\t%4\t%5\t%6\n")
                    .arg(step)
                    .arg(1.25 + step * 1.5)
                    .arg(0.125 + step * 0.0625)
                    .arg(0.5 + step * 411.00007, 0, 'f', 5)
                    .arg(0.00123 + step * 0.40101, 0, 'f', 5)
                    .arg(163.5 - step);
    }
    return text;
}

TEST(TableMenuOnASupply, AHundredPastedStepsAreInTheSuppliesMemoryOnceSent) {
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Open());
    PutOnClipboard(HundredSteps());
    panel.Choose("mnuData_Paste");
    EXPECT_TRUE(panel.Frames().empty());
    panel.Choose("mnuData_Send");
    ASSERT_TRUE(WaitFor([&] { return panel.Text("lblTABLE") == "100/100단계 송신됨"; }, 60s));
    EXPECT_TRUE(panel.Boxes.Shown.empty());
    EXPECT_EQ(panel.Frames().size(), 100U);
    const auto supply = panel.Line().StateOf(1);
    EXPECT_EQ(supply.SelectedStep, 0);
    const auto seconds = [](auto time) { return std::chrono::duration<double>(time).count(); };
    for (int step = 0; step < StepCount; ++step) {
        const auto& has = supply.Steps.at(static_cast<std::size_t>(step));
        EXPECT_TRUE(panel.Source().StepFlag(step));
        for (const auto& [value, told] : {std::pair{StepValue::Volt, has.Volts},
                                          {StepValue::Curr, has.Amps},
                                          {StepValue::Time, seconds(has.StepTime)},
                                          {StepValue::Slope, seconds(has.Slope)},
                                          {StepValue::Ovp, has.OvpVolts}})
            EXPECT_NEAR(panel.Source().Value(value, step), told, 1e-9) << step;
    }
    EXPECT_EQ(supply.Steps[99].VoltRaw, 14980);  // 149.75, shown as 149.8
    EXPECT_EQ(supply.Steps[99].Slope.count(), 39'701'220);
}

// Lets LibreOffice read and write `from`, without a window.
bool Convert(const QString& folder, const QString& from, const QString& reading,
             const QString& writing) {
    QProcess office;
    office.setProcessChannelMode(QProcess::ForwardedErrorChannel);
    office.setWorkingDirectory(folder);
    office.start("soffice", {"--headless", "-env:UserInstallation=file://" + folder + "/user",
                             "--infilter=Text - txt - csv (StarCalc):" + reading, "--convert-to",
                             writing, from});
    return office.waitForFinished(100'000) && office.exitCode() == 0;
}

QString Content(const QString& path) {
    QFile file(path);
    EXPECT_TRUE(file.open(QFile::ReadOnly)) << path.toStdString();
    return QString::fromUtf8(file.readAll());
}

TEST_F(TableMenu, ASpreadsheetTakesTheTableAndGivesItBack) {
    if (QStandardPaths::findExecutable("soffice").isEmpty())
        GTEST_SKIP() << "LibreOffice is not installed (libreoffice-calc)";
    Paste(HundredSteps());
    Choose("mnuData_Copy_All");
    const QString copied = Clipboard();
    QTemporaryDir folder;
    QFile table(folder.filePath("table.txt"));
    ASSERT_TRUE(table.open(QFile::WriteOnly));
    table.write(copied.toUtf8());
    table.close();
    ASSERT_TRUE(
        Convert(folder.path(), "table.txt", "9,34,76", "csv:Text - txt - csv (StarCalc):44,34,76"));
    const QString sheet = Content(folder.filePath("table.csv"));
    EXPECT_TRUE(sheet.startsWith(QString(Captions).replace('\t', ','))) << sheet.toStdString();
    EXPECT_EQ(sheet.count('\n'), 101);
    EXPECT_TRUE(sheet.contains("\n3,5.75,0.313,"));  // it has numbers, not texts
    ASSERT_TRUE(
        Convert(folder.path(), "table.csv", "44,34,76", "tsv:Text - txt - csv (StarCalc):9,34,76"));
    Paste("0\t0\t0\t0\t0\t0\n1\t9\t9\t9\t9\t9\n");
    Paste(Content(folder.filePath("table.tsv")));
    EXPECT_EQ(Told(), "100단계 붙여넣음: 2단계 바뀜, 송신 안 함");
    Choose("mnuData_Copy_All");
    EXPECT_TRUE(Clipboard() == copied);
}

}  // namespace
}  // namespace zps::tests
