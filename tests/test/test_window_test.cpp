#include "test/test.h"

#include "tests/support/panel.h"

#include <QPushButton>

#include <gtest/gtest.h>

namespace zps::tests {

namespace {

const Bytes DataReply{1, 2, 9, 5, 32, 0x07, 0xD0, 0x08, 0x84, 0x00, 0x64, 3, 3, 0x80};

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
    QStringList Panels() {
        QStringList texts;
        const auto& panels = Get<NumberPanels>("StatusBar_RXDATA");
        for (int i = 1; i <= panels.Count(); ++i) texts << panels.Text(i);
        return texts;
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
    void Click(const char* button) {
        QTest::mouseClick(&Window->Get<QPushButton>(button), Qt::LeftButton);
    }
    // Presses ENQ and does `deed` inside the wait for the reply.
    void PressAndInItsWait(const std::function<void()>& deed) {
        const auto later = [this](const std::function<void()>& what) {
            QMetaObject::invokeMethod(Window->Window, what, Qt::QueuedConnection);
        };
        later([=, this] {  // the receive event is the next one now
            later([=, this] {
                EXPECT_TRUE(Window->Window->Busy());
                deed();
            });
        });
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
    ASSERT_NE(window.Window, nullptr);
    EXPECT_FALSE(panel.Main().isEnabled());
    EXPECT_TRUE(window.Window->isEnabled());
    EXPECT_EQ(window.Get<QLineEdit>("txtPCOMMPORT").text(), "1");
    EXPECT_EQ(window.Verdict("cmdENQ"), "GOOD  ENQ");
    EXPECT_EQ(window.Paint("lblRESULT"), QColor(0, 255, 0));
    EXPECT_EQ(window.Verdict("cmdDLE"), "GOOD  DLE");
    EXPECT_EQ(window.Text("lblVOLTAGE"), "1500");
    EXPECT_EQ(window.Text("lblCURRENT"), "100");
    window.SetAddress("7");
    EXPECT_EQ(window.Verdict("cmdDLE"), "GOOD  DLE");
    EXPECT_EQ(window.Text("lblVOLTAGE"), "200");
    window.SetAddress("8");
    EXPECT_EQ(window.Verdict("cmdENQ"), "ERROR  Nothing");
    const std::vector<Bytes> probes{{1, 5, 6}, {7, 16, 23}, {8, 5, 13}};
    std::vector<Bytes> sent;
    for (const auto& frame : panel.Line().TakeReceived()) sent.push_back(frame);
    for (const auto& probe : probes) {
        EXPECT_EQ(std::count(sent.begin(), sent.end(), probe), 1) << int{probe[0]};
    }
    const QString volts = panel.Get<QLineEdit>("txtVOLT").text();
    window.Window->close();
    EXPECT_TRUE(panel.Main().isEnabled());
    EXPECT_FALSE(panel.Source().MenuDialogFlag);
    EXPECT_EQ(panel.Get<QLineEdit>("txtVOLT").text(), volts);
    panel.Click("cmdOCP");  // the main window has the line again
    EXPECT_TRUE(WaitFor([&] { return panel.Line().StateOf(1).OverCurrentProtection; }));
}

TEST_F(ScriptedTest, JudgesEveryKindOfReplyByItsBytes) {
    struct Case {
        Bytes Reply;
        const char* Button;
        const char* Verdict;
        QStringList Header;
    };
    Bytes burst = DataReply;
    burst.resize(45, 77);
    const std::vector<Case> cases{
        {{}, "cmdENQ", "ERROR  Nothing", {"", "", ""}},
        {{1}, "cmdENQ", "ERROR  TX/RX", {"", "", ""}},
        {{1, 6}, "cmdENQ", "ERROR  TX/RX", {"", "", ""}},
        {{1, 6, 7}, "cmdENQ", "GOOD  ENQ", {"1", "6", "7"}},
        {{1, 21, 22}, "cmdENQ", "ERROR  ENQ", {"1", "21", "22"}},
        {{1, 6, 8}, "cmdENQ", "ERROR  ENQ", {"1", "6", "8"}},
        {{1, 6, 7, 9, 9}, "cmdENQ", "GOOD  ENQ", {"7", "9", "9"}},
        {{1, 2, 8, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0}, "cmdDLE", "ERROR  DLE", {"1", "2", "8"}},
        {DataReply, "cmdDLE", "GOOD  DLE", {"1", "2", "9"}},
        {burst, "cmdDLE", "GOOD  DLE", {"77", "77", "77"}},
    };
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Verdict);
        Line().Answer(one.Reply);
        EXPECT_EQ(Window->Verdict(one.Button), one.Verdict);
        const bool good = QString(one.Verdict).startsWith("GOOD");
        EXPECT_EQ(Window->Paint("lblRESULT"), good ? QColor(0, 255, 0) : QColor(255, 0, 0));
        EXPECT_EQ(Window->Text("lblRXBUFFER"), QString::number(one.Reply.size()));
        for (int i = 0; i < 3; ++i) {
            EXPECT_EQ(Window->Text(QString("lblRXDATA_%1").arg(i)), one.Header[i]);
        }
    }
}

TEST_F(ScriptedTest, DecodesFieldsAndLampsAndKeepsThemUntilTheNextData) {
    Line().Answer(DataReply);
    Window->Verdict("cmdDLE");
    const auto fields = [&] {
        QStringList texts;
        for (const char* name :
             {"lblSTATUS", "lblERROR", "lblVOLTAGE", "lblOVP", "lblCURRENT", "lblSTEP"}) {
            texts << Window->Text(name);
        }
        return texts;
    };
    const QStringList decoded{"5", "Auto Test Ending", "2000", "2180", "100", "3"};
    EXPECT_EQ(fields(), decoded);
    for (int bit = 0; bit < 8; ++bit) {
        EXPECT_EQ(Window->Paint(QString("ledSTATUS_%1").arg(bit)),
                  bit == 0 || bit == 2 ? QColor(255, 0, 0) : QColor(255, 255, 255));
    }
    Line().Answer({1, 6, 7});
    Window->Verdict("cmdENQ");
    EXPECT_EQ(fields(), decoded);
    EXPECT_EQ(Window->Panels().mid(0, 14), QStringList({"1", "6", "7"}) + QStringList(11, ""));
    Bytes other = DataReply;
    other[2] = 8;  // no data reply
    QStringList panels;
    for (const std::uint8_t byte : other) panels << QString::number(byte);
    Line().Answer(other);
    EXPECT_EQ(Window->Verdict("cmdDLE"), "ERROR  DLE");
    EXPECT_EQ(Window->Panels().mid(0, 14), panels);
    Line().Answer({9, 21, 22});
    EXPECT_EQ(Window->Verdict("cmdENQ"), "ERROR  ENQ");
    EXPECT_EQ(Window->Panels().mid(0, 14), QStringList({"9", "21", "22"}) + panels.mid(3));
    Line().Answer({});
    EXPECT_EQ(Window->Verdict("cmdENQ"), "ERROR  Nothing");
    EXPECT_EQ(Window->Panels().mid(0, 14), QStringList(14, ""));
    EXPECT_EQ(fields(), decoded);
    other[2] = 9;
    for (const auto& [errorCode, text] :
         std::vector<std::pair<int, QString>>{{1, "OUT OFF ERROR VOLTAGE"},
                                              {2, "2"},
                                              {3, "MAX. OVER VOLTAGE"},
                                              {4, "MAX. OVER CURRENT"},
                                              {5, "SET OVER VOLTAGE"},
                                              {6, "SET OVER CURRENT"},
                                              {7, "OUT OFF ERROR CURRENT"},
                                              {16, "16"}}) {
        other[4] = static_cast<std::uint8_t>(errorCode);
        Line().Answer(other);
        Window->Verdict("cmdDLE");
        EXPECT_EQ(Window->Text("lblERROR"), text);
    }
}

TEST_F(ScriptedTest, AnAddressThatIsNoNumberKeepsTheLastAndOneOutOfRangeIsReportedAtTheProbe) {
    Window->SetAddress("12");
    Window->SetAddress("12x");
    EXPECT_TRUE(Window->Get<QLineEdit>("txtPADDR").toolTip().contains("12"));
    EXPECT_TRUE(Panel.Boxes.Shown.empty());
    Line().Answer({});
    Window->Verdict("cmdENQ");
    EXPECT_EQ(Line().WrittenData(), (std::vector<Bytes>{{12, 5, 17}}));
    const std::vector<std::pair<const char*, Bytes>> wrapped{{"cmdENQ", {250, 5, 255}},
                                                             {"cmdENQ", {251, 5, 0}},
                                                             {"cmdENQ", {255, 5, 4}},
                                                             {"cmdDLE", {255, 16, 15}}};
    for (const auto& [button, probe] : wrapped) {
        const auto address = probe.front();
        Window->SetAddress(QString::number(address));
        Line().Answer({address, 6, static_cast<std::uint8_t>(address + 6)});
        EXPECT_EQ(Window->Verdict(button), "GOOD  ENQ") << int{address};
        EXPECT_EQ(Line().WrittenData().back(), probe);
    }
    Line().ForgetWritten();
    Window->SetAddress("300");
    EXPECT_TRUE(Window->Get<QLineEdit>("txtPADDR").toolTip().isEmpty());
    Click("cmdENQ");
    EXPECT_EQ(Panel.Boxes.Shown.size(), 1U);
    EXPECT_TRUE(Line().WrittenData().empty());
    EXPECT_TRUE(Window->Window->isVisible());
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

TEST_F(ScriptedTest, APortThatNobodyCanOpenIsReportedAndLeavesBothWindowsUsable) {
    const auto reported = [&](std::size_t boxes, const QString& reason) {
        return WaitFor([&] { return Panel.Boxes.Shown.size() == boxes; }) &&
               Panel.Boxes.LastText().contains(reason);
    };
    Window->Window->close();
    Panel.Main().ShowPanels(true);  // as if a supply had been found
    Line().Refuse(1, std::errc::permission_denied);
    Window.emplace(Panel);
    EXPECT_TRUE(reported(1, "권한"));
    EXPECT_TRUE(Window->Window->isVisible() && Window->Window->isEnabled());
    Click("cmdENQ");
    EXPECT_TRUE(reported(2, "열려 있지 않습니다"));
    EXPECT_TRUE(Line().WrittenData().empty());
    Window->Window->close();
    EXPECT_TRUE(reported(3, "권한"));
    EXPECT_TRUE(Panel.Main().isVisible() && Panel.Main().isEnabled());
    EXPECT_FALSE(Panel.Get<QFrame>("frmPOWERDISPLAY").isVisible());
}

TEST_F(ScriptedTest, ClosedInsideItsWaitItJudgesNothingMore) {
    Line().AnswerInPieces({{{1, 6, 7}, 90ms}});
    PressAndInItsWait([this] { Window->Window->close(); });
    EXPECT_TRUE(WaitFor([this] { return Panel.Main().isEnabled(); }));
    EXPECT_TRUE(WaitFor([this] { return Panel.Run.Test() == nullptr; }));
    EXPECT_EQ(Line().OpenMaker(), 1);  // the main window's port, the first one made
}

}  // namespace zps::tests
