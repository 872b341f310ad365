// The step list under a real pointer, with the toolkit's own message boxes.
#include "controls/message_boxes.h"
#include "tests/power/step_panel.h"

#include <QProcess>
#include <QScrollArea>

#include <cstdio>

namespace zps::tests {
namespace {

QString Xdotool(const QStringList& arguments) {
    QProcess process;
    process.start("xdotool", arguments);
    EXPECT_TRUE(process.waitForFinished(10'000) && process.exitCode() == 0);
    return QString::fromUtf8(process.readAllStandardOutput());
}

QPoint MoveTo(const QPoint& place) {
    Xdotool({"mousemove", QString::number(place.x()), QString::number(place.y())});
    const QStringList lines = Xdotool({"getmouselocation", "--shell"}).split('\n');
    return {lines.value(0).section('=', 1).toInt(), lines.value(1).section('=', 1).toInt()};
}

// The display's pixels for one of the toolkit's.
const int Scale = std::max(1, qEnvironmentVariableIntValue("QT_SCALE_FACTOR"));
const QRect Screen({3, 3}, QPoint(1200, 1000) * Scale);

// The corners that the pointer reaches.
QRect Reach() {
    const QPoint first = MoveTo(Screen.topLeft());
    return {first, MoveTo(Screen.bottomRight())};
}

struct RealPanel : StepPanel {
    RealPanel() {
        Pointer.Real = platform::MakePointerConfinement();
        Boxes.WhileUp = [this](const Message& message) {
            QTimer::singleShot(0, &Main(), [this] {
                EXPECT_TRUE(QTest::qWaitForWindowActive(QApplication::activeModalWidget()));
                EXPECT_EQ(Reach(), Screen);
                Xdotool({"key", "Return"});
            });
            ToolkitMessageBoxes().Show(&Main(), message);
        };
    }
    // At a place that is a whole one also in the toolkit's pixels, and smaller than its contents.
    bool Open() {
        const QRect place(20, 40, 900, 700);
        if (!StepPanel::Open()) return false;
        Main().setGeometry(place);
        return WaitFor([&] { return Main().geometry() == place; });
    }
    QRect Frame() {
        const auto& frame = Get<QFrame>("fraSTEPLIST");
        return {(frame.mapToGlobal(QPointF(0, 0)) * Scale).toPoint(), frame.size() * Scale};
    }
    void Press(int row) {
        MoveTo(Button(row).mapToGlobal(Button(row).rect().center()) * Scale);
        EXPECT_TRUE(WaitFor([&] { return Button(row).underMouse(); }));
        Xdotool({"mousedown", "1"});
        EXPECT_TRUE(WaitFor([&] { return Button(row).isDown(); }));
        Xdotool({"mouseup", "1"});
        EXPECT_TRUE(WaitFor([&] { return !Button(row).isDown(); }));
    }
};

TEST(RealPointer, StaysWithTheEditedRowAndLeavesNoButtonDownBehindABox) {
    RealPanel panel;
    ASSERT_TRUE(panel.Open());
    QLineEdit& field = panel.Field("txPVOLT", 0);
    EXPECT_EQ(Reach(), Screen);
    panel.Type("txPVOLT_0", "151");
    EXPECT_EQ(Reach(), panel.Frame());
    auto& bar = *panel.Main().findChild<QScrollArea*>()->verticalScrollBar();
    const std::function<void()> shifts[]{[&] { panel.Main().move(60, 70); },
                                         [&] { bar.setValue(bar.value() == 0 ? 20 : 0); }};
    for (const auto& shift : shifts) {
        const QRect before = panel.Frame();
        shift();
        EXPECT_TRUE(WaitFor([&] { return panel.Frame() != before && Reach() == panel.Frame(); }));
    }
    Xdotool({"key", "alt+d"});
    ASSERT_TRUE(WaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    EXPECT_EQ(Reach(), Screen);
    Xdotool({"key", "Escape"});
    EXPECT_TRUE(WaitFor([&] { return Reach() == panel.Frame(); }));
    Xdotool({"key", "Escape"});  // out of the menu bar
    ASSERT_TRUE(WaitFor([&] { return field.hasFocus(); }));
    panel.Press(0);
    ASSERT_TRUE(WaitFor([&] { return field.hasFocus(); }));
    EXPECT_EQ(panel.Boxes.Shown.size(), 1U);
    EXPECT_EQ(field.selectedText(), "151");
    EXPECT_EQ(Reach(), panel.Frame());
    Xdotool({"key", "Tab"});  // from field to field, with the same box on the way
    ASSERT_TRUE(WaitFor([&] { return panel.Boxes.Shown.size() == 2 && field.hasFocus(); }));
    EXPECT_FALSE(panel.Source().RxBusy);
    Xdotool({"type", "7"});
    panel.Press(0);
    ASSERT_TRUE(WaitFor([&] { return field.text() == "7.00"; }));
    EXPECT_EQ(panel.Sent(), Only({27, 'V', 2, 0xBC, 0, 0}));
    EXPECT_EQ(Reach(), Screen);
    panel.Press(1);
    EXPECT_TRUE(WaitFor([&] { return panel.Text("txtSTEP") == "01"; }));
    EXPECT_EQ(panel.Boxes.Shown.size(), 2U);
}

TEST(RealPointer, IsFreeAfterThePanelWasKilled) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"hold"});
    ASSERT_TRUE(WaitFor([&] { return process.canReadLine(); }, 20s));
    const auto figures = process.readLine().split(' ');
    EXPECT_EQ(Reach(), QRect(figures[0].toInt(), figures[1].toInt(), figures[2].toInt(),
                             figures[3].toInt()));
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
