// The step list under a real pointer.
#include "tests/power/real_panel.h"

#include <cstdio>

namespace zps::tests {
namespace {

TEST(RealPointer, StaysWithTheEditedRowAndLeavesNoButtonDownBehindABox) {
    RealPanel panel;
    ASSERT_TRUE(panel.Open());
    QLineEdit& field = panel.Field("txPVOLT", 0);
    EXPECT_EQ(Reach(), Screen);
    panel.Type("txPVOLT_0", "151");
    EXPECT_TRUE(WaitFor([&] { return Reach() == panel.Frame(); }));
    Xdotool("key alt+d");
    ASSERT_TRUE(WaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    EXPECT_EQ(Reach(), Screen);
    Xdotool("key Escape");
    EXPECT_TRUE(WaitFor([&] { return Reach() == panel.Frame(); }));
    Xdotool("key Escape");  // out of the menu bar
    ASSERT_TRUE(WaitFor([&] { return field.hasFocus(); }));
    panel.ClickOn(panel.Button(0));
    ASSERT_TRUE(WaitFor([&] { return panel.Boxes.Shown.size() == 1 && field.hasFocus(); }));
    EXPECT_FALSE(panel.Button(0).isDown());
    EXPECT_EQ(field.selectedText(), "151");
    EXPECT_EQ(Reach(), panel.Frame());
    Xdotool("key Tab");  // from field to field, with the same box on the way
    ASSERT_TRUE(WaitFor([&] { return panel.Boxes.Shown.size() == 2 && field.hasFocus(); }));
    EXPECT_FALSE(panel.Source().RxBusy);
    Xdotool("type 7");
    panel.ClickOn(panel.Button(0));
    ASSERT_TRUE(WaitFor([&] { return field.text() == "7.00"; }));
    EXPECT_EQ(panel.Sent(), Only({27, 'V', 2, 0xBC, 0, 0}));
    EXPECT_EQ(Reach(), Screen);
}

TEST(RealPointer, FollowsTheLockedRowWhateverMovesIt) {
    RealPanel panel;
    ASSERT_TRUE(panel.Open());
    panel.Type("txPVOLT_0", "5");
    const QString id = QString::number(panel.Main().winId());
    const auto size = [&](int width, int height) {
        Xdotool(QString("windowsize %1 %2 %3").arg(id).arg(width * Scale).arg(height * Scale));
    };
    QScrollBar& bar = *panel.View().verticalScrollBar();
    const std::pair<const char*, std::function<void()>> shifts[]{
        {"moved", [&] { Xdotool("windowmove " + id + " 160 170"); }},
        {"scrolled", [&] { bar.setValue(bar.value() == 0 ? bar.maximum() : 0); }},
        {"made narrow: the list goes below the switches", [&] { size(700, 900); }},
        {"made low: less of the list shows", [&] { size(700, 560); }},
        {"maximised", [&] { panel.Main().showMaximized(); }},
        {"as it was", [&] { panel.Main().showNormal(); }},
    };
    for (const auto& [what, shift] : shifts) {
        const QRect before = panel.Frame();
        shift();
        EXPECT_TRUE(WaitFor([&] { return panel.Frame() != before && Reach() == panel.Frame(); }))
            << what;
    }
    Xdotool("key Escape");
    EXPECT_TRUE(WaitFor([] { return Reach() == Screen; }));
}

TEST(RealPointer, IsFreeAfterThePanelWasKilled) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"hold"});
    ASSERT_TRUE(WaitFor([&] { return process.canReadLine(); }));
    EXPECT_TRUE(WaitFor([] { return !Reach().contains(Screen); }));
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_TRUE(WaitFor([] { return Reach() == Screen; }));
}

TEST(RealWindows, StartWithTheSettingsInTheMiddleOfTheMainWindow) {
    RealPanel panel;
    ASSERT_TRUE(panel.Identify());
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel.Run.Settings()));
    const auto centre = [](const QWidget& window) { return window.frameGeometry().center(); };
    const QPoint apart = centre(*panel.Run.Settings()) - centre(panel.Main());
    EXPECT_LE(apart.manhattanLength(), 40);
}

// A panel with a locked row, for the test to kill.
int Hold() {
    RealPanel panel;
    if (!panel.Open()) return 1;
    panel.Type("txPVOLT_0", "5");
    std::puts("locked");
    std::fflush(stdout);
    return QApplication::exec();
}

}  // namespace
}  // namespace zps::tests

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    QApplication::setQuitOnLastWindowClosed(false);
    zps::DressApplication();
    if (QApplication::arguments().contains("hold")) return zps::tests::Hold();
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
