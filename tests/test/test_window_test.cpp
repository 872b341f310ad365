// First, as a header of the project must stand behind it too.
#include "test/test.h"

#include "tests/support/panel.h"
#include "tests/support/processor_time.h"

#include <QPushButton>
#include <QRegularExpression>

#include <gtest/gtest.h>

namespace zps::tests {

namespace {

const Bytes DataReply{1, 2, 9, 5, 32, 0x07, 0xD0, 0x08, 0x84, 0x00, 0x64, 3, 3, 0x80};

// The same with another byte at `place`.
Bytes DataWith(std::size_t place, int byte) {
    Bytes reply = DataReply;
    reply.at(place) = static_cast<std::uint8_t>(byte);
    return reply;
}

// The test window, opened from the menu.
class Opened {
  public:
    explicit Opened(tests::Panel& panel) : Panel(panel) {
        Panel.Choose("mnuTEST");
        Window = Panel.Run.Test();
    }
    template <class Control>
    Control& Get(const QString& name) {
        return *Window->findChild<Control*>(name);
    }
    QString Text(const QString& label) { return Get<QLabel>(label).text(); }
    QColor Paint(const QString& label) {
        return Get<QLabel>(label).palette().color(QPalette::Window);
    }
    QColor Ink(const QString& label) {
        return Get<QLabel>(label).palette().color(QPalette::WindowText);
    }
    // The texts of several labels.
    QString Texts(const char* names) {
        QStringList texts;
        for (const QString& name : QString(names).split(' ')) texts << Text(name);
        return texts.join(' ');
    }
    QString Panels(int count = 16) {
        QStringList texts;
        for (int i = 1; i <= count; ++i) texts << Get<NumberPanels>("StatusBar_RXDATA").Text(i);
        return texts.join(' ').remove(QRegularExpression(" *$"));
    }
    // Presses a probe button by its key in the address field and waits for the verdict on it.
    QString Verdict(const char* button) {
        Get<QLabel>("lblRESULT").setText("?");
        EXPECT_TRUE(WaitFor([this] { return QApplication::activeWindow() == Window; }));
        const auto key = button == QByteArray("cmdENQ") ? Qt::Key_F2 : Qt::Key_F3;
        QTest::keyClick(&Get<QLineEdit>("txtPADDR"), key);
        WaitFor([this] { return Text("lblRESULT") != "?"; });
        return Text("lblRESULT");
    }
    void SetAddress(const QString& text) { Get<QLineEdit>("txtPADDR").setText(text); }

    tests::Panel& Panel;
    TEST* Window;
};

class ScriptedTest : public testing::Test {
  protected:
    ScriptedTest() {
        Panel.Run.StartUp();
        Panel.Run.Settings()->close();
        Window.emplace(Panel);
        Panel.Line().ForgetWritten();
    }
    ScriptedLine& Line() { return Panel.Line(); }
    void Click(const char* button) { Window->Get<QPushButton>(button).click(); }
    // Presses ENQ and does `deed` inside the wait for the reply, in the event after the next.
    void PressAndInItsWait(const std::function<void()>& deed) {
        const auto later = [this](const std::function<void()>& what) {
            QMetaObject::invokeMethod(Window->Window, what, Qt::QueuedConnection);
        };
        later([=] { later(deed); });
        Click("cmdENQ");
    }
    ScriptedPanel Panel;
    std::optional<Opened> Window;
};

}  // namespace

TEST(TestWindow, ProbesTheSuppliesOnTheLineAndGivesThePortBack) {
    SimulatedPanel panel({{1, 150, 10, 100}, {7, 20, 5, 100}});
    ASSERT_TRUE(panel.Open());
    Opened window(panel);
    EXPECT_EQ(window.Get<QLineEdit>("txtPCOMMPORT").text(), "1");
    EXPECT_EQ(window.Text("lblSTAMP"), "아직 보내지 않음");
    const struct {
        const char *Address, *Button, *Verdict;
        const char* Values;  // in volts and amperes where it is known whose they are
        const char* Stamp;   // behind the time
        bool Old;            // the values are those of a reply before
        Bytes Sent;
    } probes[]{
        {"1", "cmdENQ", "GOOD  ENQ", "VOLTAGE CURRENT  ", "3바이트 · 0", false, {1, 5, 6}},
        {"7", "cmdDLE", "GOOD  DLE", "200 50  ", "14바이트 · 0", false, {7, 16, 23}},
        {"1", "cmdDLE", "GOOD  DLE", "1500 100 = 150.0 V = 10.0 A", "14바이", false, {1, 16, 17}},
        {"8", "cmdENQ", "ERROR  Nothing", nullptr, "0바이트 · 응답 없음", true, {8, 5, 13}}};
    QString values;
    for (const auto& [address, button, verdict, brought, stamp, old, frame] : probes) {
        panel.Line().TakeReceived();
        window.SetAddress(address);
        EXPECT_EQ(window.Verdict(button), verdict);
        if (brought != nullptr) values = brought;
        EXPECT_EQ(window.Texts("lblVOLTAGE lblCURRENT lblVOLTAGE_SCALED lblCURRENT_SCALED"),
                  values);
        EXPECT_TRUE(
            window.Text("lblSTAMP")
                .contains(QRegularExpression(
                    QStringLiteral("^\\d\\d:\\d\\d:\\d\\d · %1").arg(QString::fromUtf8(stamp)))));
        EXPECT_EQ(window.Get<QLabel>("lblOLD").isVisible(), old);
        EXPECT_EQ(panel.Line().TakeReceived(), std::vector<Bytes>{frame});
    }
    window.Window->close();
    EXPECT_FALSE(panel.Source().MenuDialogFlag);
    panel.Click("cmdOCP");  // the main window has the line again
    EXPECT_TRUE(WaitFor([&] { return panel.Line().StateOf(1).OverCurrentProtection; }));
}

// One after the other: what a reply does not touch stays as it was.
TEST_F(ScriptedTest, JudgesEveryReplyByItsBytesAndTouchesOnlyWhatItBringsAnew) {
    struct Case {
        Bytes Reply;
        const char* Verdict;
        const char* Header;
        const char* Panels;
        const char* Fields;
    };
    Bytes burst = DataReply;
    burst.insert(burst.end(), {66, 77});
    const auto* const decoded = "5 Auto Test Ending 2000 2180 100 3";
    const auto* const untouched = "STATUS ERROR VOLTAGE OVP CURRENT STEP";
    const std::vector<Case> cases{
        {{1, 6, 7}, "GOOD  ENQ", "1 6 7", "1 6 7", untouched},
        {{1, 21, 22}, "ERROR  ENQ", "1 21 22", "1 21 22", untouched},
        {DataReply, "GOOD  DLE", "1 2 9", "1 2 9 5 32 7 208 8 132 0 100 3 3 128", decoded},
        {{1, 6}, "ERROR  TX/RX", "  ", "1 6 9 5 32 7 208 8 132 0 100 3 3 128", decoded},
        {{1, 6, 7, 9, 9}, "GOOD  ENQ", "7 9 9", "1 6 7", decoded},
        {{1, 6, 8}, "ERROR  ENQ", "1 6 8", "1 6 8", decoded},
        {DataWith(2, 8), "ERROR  DLE", "1 2 8", "1 2 8 5 32 7 208 8 132 0 100 3 3 128", decoded},
        {DataWith(0, 2), "ERROR  DLE", "2 2 9", "2 2 9 5 32 7 208 8 132 0 100 3 3 128", decoded},
        {burst, "GOOD  DLE", "9 5 32", "1 2 9 5 32 7 208 8 132 0 100 3 3 128 66 77", decoded},
        {{}, "ERROR  Nothing", "  ", "              66 77", decoded},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Panels);
        Line().Answer(one.Reply);
        EXPECT_EQ(Window->Verdict(one.Reply.size() > 9 ? "cmdDLE" : "cmdENQ"), one.Verdict);
        const bool good = QString(one.Verdict).startsWith("GOOD");
        EXPECT_EQ(Window->Paint("lblRESULT"), good ? QColor(0, 255, 0) : QColor(255, 0, 0));
        EXPECT_EQ(Window->Text("lblRXBUFFER"), QString::number(one.Reply.size()));
        EXPECT_EQ(Window->Texts("lblRXDATA_0 lblRXDATA_1 lblRXDATA_2"), one.Header);
        EXPECT_EQ(Window->Panels(), one.Panels);
        // A byte that is left from a reply before is fainter.
        const bool left = one.Reply.size() < 14;
        EXPECT_EQ(Contrast(Window->Ink("StatusBar_RXDATA_14"), Qt::black) > 3, left);
        EXPECT_EQ(Window->Texts("lblSTATUS lblERROR lblVOLTAGE lblOVP lblCURRENT lblSTEP"),
                  one.Fields);
    }
    for (int bit = 0; bit < 8; ++bit) {
        const bool set = bit == 0 || bit == 2;
        EXPECT_EQ(Window->Paint(QString("ledSTATUS_%1").arg(bit)),
                  set ? QColor(255, 0, 0) : QColor(255, 255, 255));
        EXPECT_EQ(Window->Text(QString("lblBIT_%1").arg(bit)), set ? "1" : "0");
    }
    // With the output on the counts are no tenths.
    for (const FieldText& field : DecodeFields(std::span(DataReply).first<14>(), true))
        EXPECT_EQ(field.Scaled, "");
    const auto meanings =
        QString(
            "0,OUT OFF ERROR VOLTAGE,2,MAX. OVER VOLTAGE,MAX. OVER CURRENT,SET OVER VOLTAGE,"
            "SET OVER CURRENT,OUT OFF ERROR CURRENT,8")
            .split(',');
    for (int code = 0; code < meanings.size(); ++code) {
        Line().Answer(DataWith(4, code));
        Window->Verdict("cmdDLE");
        EXPECT_EQ(Window->Text("lblERROR"), meanings[code]);
    }
}

// 9600 bytes are what waits after the machine has slept for ten seconds.
TEST_F(ScriptedTest, AStreamCostsItLittleTimeAndLeavesItsSizeAndTheNextVerdictAsTheyAre) {
    const QSize size = Window->Window->size();
    double longest = 0;
    for (const std::size_t lump : {30U, 9'600U, 100'000U, 20U}) {
        const QString counted = QString::number(std::min<std::size_t>(lump, 16'384));
        const double before = ProcessorTime();
        Line().Arrive(Bytes(lump, 255));
        const auto& last = Window->Get<QLabel>("StatusBar_RXDATA_20");
        EXPECT_TRUE(WaitFor(
            [&] { return Window->Text("lblRXBUFFER") == counted && last.text() == "255"; }));
        longest = std::max(longest, ProcessorTime() - before);
    }
    EXPECT_LT(longest, 0.05);
    EXPECT_EQ(Window->Window->size(), size);
    EXPECT_EQ(Window->Window->findChildren<QLabel*>(QRegularExpression("^StatusBar_")).size(), 64);
    Line().Arrive(Bytes(1'000, 254));
    Line().Answer({1, 6, 7});
    EXPECT_EQ(Window->Verdict("cmdENQ"), "GOOD  ENQ");
    EXPECT_EQ(Window->Panels(64),
              "1 6 7" + QString(12, ' ') + QString("255 ").repeated(6).trimmed());
}

TEST_F(ScriptedTest, AnAddressThatIsNoNumberKeepsTheLastAndOneOutOfRangeIsReportedAtTheProbe) {
    Window->SetAddress("12");
    Window->SetAddress("12x");
    EXPECT_TRUE(Window->Get<QLineEdit>("txtPADDR").toolTip().contains("12"));
    Line().Answer({});
    Window->Verdict("cmdENQ");
    EXPECT_EQ(Line().WrittenData(), (std::vector<Bytes>{{12, 5, 17}}));
    for (const Bytes& probe : {Bytes{250, 5, 255}, {251, 5, 0}, {255, 16, 15}}) {
        Window->SetAddress(QString::number(probe[0]));
        Line().Answer({probe[0], 6, static_cast<std::uint8_t>(probe[0] + 6)});
        EXPECT_EQ(Window->Verdict(probe[1] == 5 ? "cmdENQ" : "cmdDLE"), "GOOD  ENQ") << +probe[0];
        EXPECT_EQ(Line().WrittenData().back(), probe);
    }
    Line().ForgetWritten();
    Window->SetAddress("300");
    EXPECT_TRUE(Window->Get<QLineEdit>("txtPADDR").toolTip().isEmpty());
    Click("cmdENQ");
    EXPECT_EQ(Panel.Boxes.Shown.size(), 1U);
    EXPECT_TRUE(Line().WrittenData().empty());
    Window->SetAddress("40000");
    EXPECT_TRUE(Window->Get<QLineEdit>("txtPADDR").toolTip().endsWith("너무 큼). 지금 주소: 300"));
}

TEST_F(ScriptedTest, ASecondProbeInsideTheWaitGetsItsVerdictOnceInTheSameWaitOrTheNext) {
    auto& result = Window->Get<QLabel>("lblRESULT");
    for (const auto after : {0ms, 150ms}) {
        result.setText("?");
        Line().Answer({});
        Line().AnswerInPieces({{{1, 6, 7}, after}});
        PressAndInItsWait([this] { Click("cmdENQ"); });
        EXPECT_TRUE(WaitFor([&] { return result.text() == "GOOD  ENQ"; })) << after.count();
        EXPECT_FALSE(WaitFor([&] { return result.text() != "GOOD  ENQ"; }, 200ms));
    }
    EXPECT_EQ(Line().WrittenData().size(), 4U);
}

TEST_F(ScriptedTest, AProbeLateInTheWaitBeforeIsWhatItsAnswerIsTo) {
    Line().AnswerInPieces({{{}, 70ms}});
    Line().AnswerInPieces({{{1, 6, 7}, 60ms}});  // 30 ms after the end of that wait
    PressAndInItsWait([this] {
        QMetaObject::invokeMethod(
            Window->Window, [this] { Click("cmdENQ"); }, Qt::QueuedConnection);
    });
    EXPECT_TRUE(WaitFor([this] { return Window->Text("lblRESULT") == "GOOD  ENQ"; }));
    EXPECT_TRUE(Window->Text("lblSTAMP").contains("3바이트 · 0."));
    Line().Arrive({1, 6, 7});
    EXPECT_TRUE(WaitFor([this] { return Window->Text("lblSTAMP").contains("조회 없이"); }));
}

TEST_F(ScriptedTest, APortThatNobodyCanOpenIsReportedEachTimeAndHidesThePanels) {
    const auto boxes = [&](std::size_t count) {
        return WaitFor([&] { return Panel.Boxes.Shown.size() == count; });
    };
    Window->Window->close();
    Panel.Main().ShowPanels(true);  // as if a supply had been found
    Line().Refuse(1, std::errc::permission_denied);
    Window.emplace(Panel);
    EXPECT_TRUE(boxes(1));
    Click("cmdENQ");
    Window->Window->close();
    EXPECT_TRUE(boxes(3) && Panel.Main().isEnabled());
    EXPECT_FALSE(Panel.Get<QFrame>("frmPOWERDISPLAY").isVisible());
    EXPECT_TRUE(Panel.Text("lblCAUSE").contains("COM1"));
    Line().Accept(1);
    Window.emplace(Panel);
    Window->Window->close();
    EXPECT_EQ(Panel.Text("lblCAUSE"), "통신 확인을 마치지 않았습니다.");
}

TEST_F(ScriptedTest, ClosedInsideItsWaitItJudgesNothingMore) {
    Line().AnswerInPieces({{{1, 6, 7}, 90ms}});
    PressAndInItsWait([this] {
        EXPECT_TRUE(Window->Window->Busy());
        Window->Window->close();
    });
    EXPECT_TRUE(WaitFor([this] { return Panel.Main().isEnabled() && !Panel.Run.Test(); }));
    EXPECT_EQ(Line().OpenMaker(), 1);  // the main window's port, the first one made
}

}  // namespace zps::tests
