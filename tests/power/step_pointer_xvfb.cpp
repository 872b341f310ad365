// The step list under a real pointer.
#include "tests/power/real_panel.h"

#include <cstdio>

namespace zps::tests {
namespace {

// The window manager puts windows on the display's pixels, the toolkit counts in its own.
bool Near(const QRect& a, const QRect& b) {
    const QMargins apart(Scale - 1, Scale - 1, Scale - 1, Scale - 1);
    return (a + apart).contains(b) && (b + apart).contains(a);
}

TEST(RealPointer, StaysWithTheEditedRowAndLeavesNoButtonDownBehindABox) {
    RealPanel panel;
    ASSERT_TRUE(panel.Open());
    QLineEdit& field = panel.Field("txPVOLT", 0);
    EXPECT_EQ(Reach(), Screen);
    panel.Type("txPVOLT_0", "151");
    EXPECT_TRUE(Await([&] { return Reach() == panel.Frame(); }));
    Xdotool("key alt+d");
    ASSERT_TRUE(Await([] { return QApplication::activePopupWidget() != nullptr; }));
    EXPECT_EQ(Reach(), Screen);
    Xdotool("key Escape");
    EXPECT_TRUE(Await([&] { return Reach() == panel.Frame(); }));
    Xdotool("key Escape");  // out of the menu bar
    ASSERT_TRUE(Await([&] { return field.hasFocus(); }));
    panel.ClickOn(panel.Button(0));
    ASSERT_TRUE(Await([&] { return panel.Boxes.Shown.size() == 1 && field.hasFocus(); }));
    EXPECT_FALSE(panel.Button(0).isDown());
    EXPECT_EQ(field.selectedText(), "151");
    EXPECT_EQ(Reach(), panel.Frame());
    Xdotool("key Tab");  // from field to field, with the same box on the way
    ASSERT_TRUE(Await([&] { return panel.Boxes.Shown.size() == 2 && field.hasFocus(); }));
    EXPECT_EQ(panel.Source().OldText, "0.00");
    EXPECT_FALSE(panel.Source().RxBusy);
    Xdotool("type 7");
    panel.ClickOn(panel.Button(0));
    ASSERT_TRUE(Await([&] { return field.text() == "7.00"; }));
    EXPECT_EQ(panel.Sent(), Only({27, 'V', 2, 0xBC, 0, 0}));
    EXPECT_EQ(Reach(), Screen);
    panel.ClickOn(panel.Button(1));
    EXPECT_TRUE(Await([&] { return panel.Text("txtSTEP") == "01"; }));
    EXPECT_EQ(panel.Boxes.Shown.size(), 2U);
}

TEST(RealPointer, GoesAlongWithTheLockedRowWhateverMovesIt) {
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
        EXPECT_TRUE(Await([&] { return panel.Frame() != before && Near(Reach(), panel.Frame()); }))
            << what;
    }
    Xdotool("key Escape");
    EXPECT_TRUE(Await([] { return Reach() == Screen; }));
}

TEST(RealPointer, IsFreeAfterThePanelWasKilled) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"hold"});
    ASSERT_TRUE(Await([&] { return process.canReadLine(); }));
    const auto figures = process.readLine().split(' ');
    EXPECT_EQ(Reach(), QRect(figures[0].toInt(), figures[1].toInt(), figures[2].toInt(),
                             figures[3].toInt()));
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_TRUE(Await([] { return Reach() == Screen; }));
}

TEST(RealWindows, StartWithTheSettingsInTheMiddleOfTheMainWindow) {
    RealPanel panel;
    ASSERT_TRUE(panel.Identify());
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel.Run.Settings()));
    const auto centre = [](const QWidget& window) { return window.frameGeometry().center(); };
    const QPoint apart = centre(*panel.Run.Settings()) - centre(panel.Main());
    EXPECT_LE(apart.manhattanLength(), 40);
}

// A panel with a locked row, for the test to kill: tells where its frame is.
int Hold() {
    RealPanel panel;
    if (!panel.Open()) return 1;
    panel.Type("txPVOLT_0", "5");
    const QRect area = panel.Frame();
    std::printf("%d %d %d %d \n", area.x(), area.y(), area.width(), area.height());
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
