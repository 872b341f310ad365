// What a real desktop does around an entry that is not finished: menus, boxes, presses, the wheel.
#include "tests/power/real_panel.h"

#include <QMenuBar>

namespace zps::tests {
namespace {

struct Desk : testing::Test, RealPanel {
    void SetUp() override { ASSERT_TRUE(Open()); }

    bool InMenuBar() { return Main().focusWidget() == Main().menuBar(); }
    // Away from the entry without ending it.
    void ByAlt() {
        Xdotool("key alt");
        EXPECT_TRUE(Await([&] { return InMenuBar(); }));
    }
    void ByMenu() {
        Xdotool("key alt+d");
        EXPECT_TRUE(Await([] { return QApplication::activePopupWidget() != nullptr; }));
        Xdotool("key Escape");
        EXPECT_TRUE(Await([&] { return !QApplication::activePopupWidget() && InMenuBar(); }));
    }
    // What may be done next, with a locked row.
    void StepButton() { ClickOn(Button(0)); }
    void OtherField() { ClickOn(Field("txPCURR", 0)); }
    void Settings() {
        Xdotool("key alt+s");
        EXPECT_TRUE(Await([&] { return QApplication::activePopupWidget() || Answered(); }));
        if (!Answered()) Xdotool("key r");
    }
    void Remote() {
        auto& remote = Get<QPushButton>("cmdPREMOTE");
        StepButton();
        EXPECT_TRUE(Await([&] { return !InMenuBar() || Answered(); }));
        for (int key = 0; key < 8 && !remote.hasFocus() && !Answered(); ++key) {
            const QWidget* before = Main().focusWidget();
            Xdotool("key shift+Tab");
            EXPECT_TRUE(Await([&] { return Main().focusWidget() != before || Answered(); }));
        }
        if (!Answered()) Xdotool("key space");
    }
    bool Answered() { return !Boxes.Shown.empty(); }
    bool Back(const QWidget& field) { return Main().isActiveWindow() && field.hasFocus(); }
};

struct Detour {
    const char* What;
    void (Desk::*Away)();
    void (Desk::*Next)();
};
const Detour Detours[]{
    {"Alt, step button", &Desk::ByAlt, &Desk::StepButton},
    {"menu, other field", &Desk::ByMenu, &Desk::OtherField},
    {"menu, step button, Shift+Tab to REMOTE, Space", &Desk::ByMenu, &Desk::Remote},
    {"Alt, settings", &Desk::ByAlt, &Desk::Settings}};

TEST_F(Desk, AnEntryOutOfRangeEndsInOneMessageWhateverIsDoneBehindTheMenuBar) {
    QLineEdit& field = Field("txPVOLT", 0);
    for (const auto& [what, away, next] : Detours) {
        SCOPED_TRACE(what);
        Boxes.Shown.clear();
        Type("txPVOLT_0", "151");
        (this->*away)();
        (this->*next)();
        ASSERT_TRUE(Await([&] { return Answered() && Back(field); }));
        EXPECT_EQ(field.selectedText(), "151");
        EXPECT_EQ(Sent(), std::vector<Bytes>());
        EXPECT_EQ(Boxes.Shown.size(), 1U);
        Xdotool("key Escape");
        ASSERT_TRUE(Await([&] { return field.text() == "0.00"; }));
    }
}

TEST_F(Desk, AnEntryInRangeIsSentBeforeWhatIsDoneBehindTheMenuBar) {
    int volts = 12;
    for (const auto& [what, away, next] : Detours) {
        SCOPED_TRACE(what);
        if (next == &Desk::Remote) continue;  // ends the entries
        Type("txPVOLT_0", QString::number(volts));
        (this->*away)();
        (this->*next)();
        std::vector<Bytes> sent;
        ASSERT_TRUE(Await([&] { return !(sent = Frames()).empty(); }));
        const auto counts = static_cast<std::uint16_t>(100 * volts++);
        const Bytes frame = Framed(1, {27, 'V', static_cast<std::uint8_t>(counts >> 8),
                                       static_cast<std::uint8_t>(counts & 0xFF), 0, 0});
        EXPECT_EQ(sent.front(), frame);
        ASSERT_TRUE(Settle());
    }
    EXPECT_TRUE(Await([&] { return RealPanel::Run.Settings() != nullptr; }));
    EXPECT_EQ(Boxes.Shown.size(), 0U);
}

TEST_F(Desk, SequenceAndCountAreSentBeforeWhatIsDoneBehindTheMenuBar) {
    Type("txtPAUTOSTEP", "0000");
    ByAlt();
    ClickOn(Get<QWidget>("cmdAUTO"));
    std::vector<Bytes> sent;
    const auto arrive = [&](std::size_t count) {
        return Await([&] {
            for (const auto& frame : Frames()) sent.push_back(frame);
            return sent.size() >= count;
        });
    };
    ASSERT_TRUE(arrive(2));
    EXPECT_EQ(sent[0], Framed(1, {27, 'B', 0, 0, 0xFF}));
    EXPECT_EQ(sent[1], Framed(1, {27, 'G', 1, 0, 0, 0, 0, 0}));
    sent.clear();
    Type("txtPAUTOCOUNT", "7");
    const QMenuBar& bar = *Main().menuBar();
    MoveTo(bar.mapToGlobal(bar.actionGeometry(bar.actions()[1]).center()) * Scale);
    Xdotool("click 1");
    ASSERT_TRUE(Await([] { return QApplication::activePopupWidget() != nullptr; }));
    Xdotool("key Escape");
    ASSERT_TRUE(Await([&] { return InMenuBar(); }));
    ClickOn(Get<QWidget>("txtPAUTOSTEP"));
    ASSERT_TRUE(arrive(1));
    EXPECT_EQ(sent[0], Framed(1, {27, 'F', 0, 7}));
}

TEST_F(Desk, TheWheelOverTheRowsScrollsTheListAndABoxLeavesNoPressOnItsBar) {
    const QString volts = Field("txPVOLT", 2).text();
    ClickOn(Field("txPVOLT", 2), 5);
    EXPECT_TRUE(Await([&] { return Bar().value() > 0; }));
    EXPECT_EQ(Field("txPVOLT", 2).text(), volts);
    Bar().setValue(0);
    Type("txtPAUTOSTEP", "05");
    ClickOn(Bar(), 1, true);
    ASSERT_TRUE(Await([&] { return Answered() && Main().isActiveWindow(); }));
    // As long as a press would take to repeat itself.
    EXPECT_FALSE(WaitFor([&] { return Bar().value() > 1; }, 1s)) << Bar().value();
    EXPECT_EQ(Boxes.Shown.size(), 1U);
}

}  // namespace
}  // namespace zps::tests
