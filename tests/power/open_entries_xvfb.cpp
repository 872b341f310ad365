// What a real desktop does around an entry that is not finished: menus, boxes, presses, the wheel.
#include "tests/power/real_panel.h"

#include <QClipboard>
#include <QMenuBar>

namespace zps::tests {
namespace {

struct Desk : testing::Test, RealPanel {
    void SetUp() override { ASSERT_TRUE(Open()); }

    bool Answered() { return !Boxes.Shown.empty(); }
    // Away from the entry without ending it: behind a menu the menu bar keeps the keys.
    void Leave(const char* how) {
        const bool menu = QByteArray(how) != "key alt";
        const auto open = [] { return QApplication::activePopupWidget() != nullptr; };
        Xdotool(how);
        EXPECT_TRUE(!menu || WaitFor(open));
        if (menu) Xdotool("key Escape");
        EXPECT_TRUE(WaitFor([&] { return Main().focusWidget() == Main().menuBar(); }));
    }
    // What may be done next with a locked row.
    void StepButton() { ClickOn(Button(0)); }
    void OtherField() { ClickOn(Field("txPCURR", 0)); }
    void Remote() {
        StepButton();
        EXPECT_TRUE(WaitFor([&] { return Main().focusWidget() != Main().menuBar(); }));
        if (!Answered()) Xdotool("key shift+Tab key shift+Tab key shift+Tab key space");
    }
    void Settings() {
        Xdotool("key alt+s");
        EXPECT_TRUE(WaitFor([&] { return QApplication::activePopupWidget() || Answered(); }));
        if (!Answered()) Xdotool("key r");
    }
};

struct Detour {
    const char* Away;
    void (Desk::*Next)();
};
const Detour Detours[]{{"key alt+d", &Desk::Remote},
                       {"key alt", &Desk::StepButton},
                       {"key alt+d", &Desk::OtherField},
                       {"key alt", &Desk::Settings}};

TEST_F(Desk, AnEntryIsJudgedBeforeWhatIsDoneBehindTheMenuBar) {
    QLineEdit& field = Field("txPVOLT", 0);
    std::uint8_t volts = 0;
    for (const auto& [away, next] : Detours) {
        SCOPED_TRACE(testing::Message() << away << ", detour " << int{volts});
        const QString before = field.text();
        Type("txPVOLT_0", "151");
        Leave(away);
        (this->*next)();
        ASSERT_TRUE(WaitFor([&] { return Answered() && field.hasFocus(); }));
        EXPECT_EQ(field.selectedText(), "151");
        EXPECT_EQ(Sent(), std::vector<Bytes>());
        EXPECT_EQ(Boxes.Shown.size(), 1U);
        Xdotool("key Escape");
        ASSERT_TRUE(WaitFor([&] { return field.text() == before; }));
        Boxes.Shown.clear();
        if (next == &Desk::Remote) continue;  // would end the entries
        Type("txPVOLT_0", QString::number(++volts));
        Leave(away);
        (this->*next)();
        std::vector<Bytes> sent;
        ASSERT_TRUE(WaitFor([&] { return !(sent = Frames()).empty(); }));
        const std::uint8_t counts = 100 * volts % 256;
        EXPECT_EQ(sent[0],
                  Only({27, 'V', static_cast<std::uint8_t>(100 * volts / 256), counts, 0, 0})[0]);
        EXPECT_TRUE(Settle());
    }
    EXPECT_TRUE(WaitFor([&] { return RealPanel::Run.Settings() != nullptr; }));
}

TEST_F(Desk, SequenceAndCountAreSentBeforeWhatIsDoneBehindTheMenuBar) {
    Type("txtPAUTOSTEP", "0000");
    Leave("key alt");
    ClickOn(Get<QWidget>("cmdAUTO"));
    EXPECT_TRUE(WaitFor([&] { return Line().StateOf(1).Auto; }));
    EXPECT_EQ(Sent(), (std::vector<Bytes>{Framed(1, {27, 'B', 0, 0, 0xFF}),
                                          Framed(1, {27, 'G', 1, 0, 0, 0, 0, 0})}));
    Type("txtPAUTOCOUNT", "7");
    const QMenuBar& bar = *Main().menuBar();
    MoveTo(bar.mapToGlobal(bar.actionGeometry(bar.actions()[1]).center()) * Scale);
    Leave("click 1");
    ClickOn(Get<QWidget>("txtPAUTOSTEP"));
    EXPECT_TRUE(WaitFor([&] { return Line().StateOf(1).Count == 7; }));
}

TEST_F(Desk, TheWheelOverTheRowsScrollsTheListAndABoxLeavesNoPressOnItsBar) {
    // Pressed by mistake while it is turned, the wheel pastes nothing.
    const QString before = Field("txPVOLT", 0).text();
    QApplication::clipboard()->setText("9", QClipboard::Selection);
    ClickOn(Field("txPVOLT", 0), 2);
    EXPECT_FALSE(WaitFor([&] { return Field("txPVOLT", 0).text() != before; }, 300ms));
    EXPECT_TRUE(Field("txPVOLT", 0).hasFocus());
    const QString volts = Field("txPVOLT", 2).text();
    ClickOn(Field("txPVOLT", 2), 5);
    EXPECT_TRUE(WaitFor([&] { return Bar().value() > 0; }));
    EXPECT_EQ(Field("txPVOLT", 2).text(), volts);
    Bar().setValue(0);
    Type("txtPAUTOSTEP", "05");
    ClickOn(Bar(), 1, true);
    ASSERT_TRUE(WaitFor([&] { return Answered() && Main().isActiveWindow(); }));
    // As long as a press would take to repeat itself.
    EXPECT_FALSE(WaitFor([&] { return Bar().value() > 1; }, 1s)) << Bar().value();
    EXPECT_EQ(Boxes.Shown.size(), 1U);
}

}  // namespace
}  // namespace zps::tests
