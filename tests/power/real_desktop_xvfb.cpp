// The panel under a real pointer and real keys, with the toolkit's own message boxes.
#include "controls/message_boxes.h"
#include "tests/power/step_panel.h"

#include <QClipboard>
#include <QMenuBar>
#include <QProcess>
#include <QScrollArea>

#include <algorithm>
#include <cstdio>

namespace zps::tests {
namespace {

QString Xdotool(const QString& commands) {
    QProcess process;
    process.start("xdotool", commands.split(' '));
    EXPECT_TRUE(process.waitForFinished(20'000) && process.exitCode() == 0) << qPrintable(commands);
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The display's pixels for one of the toolkit's.
const int Scale = std::max(1, qEnvironmentVariableIntValue("QT_SCALE_FACTOR"));
const QRect Screen({3, 3}, QPoint(1200, 1000) * Scale);

// Where a pointer ends that is sent to the place.
QPoint MoveTo(const QPoint& place) {
    const QString asked = "mousemove %1 %2 getmouselocation --shell";
    const QStringList lines = Xdotool(asked.arg(place.x()).arg(place.y())).split('\n');
    return {lines.value(0).section('=', 1).toInt(), lines.value(1).section('=', 1).toInt()};
}

// The corners that the pointer reaches.
QRect Reach() {
    const QPoint first = MoveTo(Screen.topLeft());
    return {first, MoveTo(Screen.bottomRight())};
}

bool MenuIsOpen() {
    return WaitFor([] { return QApplication::activePopupWidget() != nullptr; });
}

struct RealPanel : StepPanel {
    RealPanel() {
        Pointer.Real = platform::MakePointerConfinement();
        Boxes.WhileUp = [this](const Message& message) {
            QTimer::singleShot(0, &Main(), [this] { AnswerBox(); });
            ToolkitMessageBoxes().Show(&Main(), message);
        };
    }
    // At a place that is a whole one also in the toolkit's pixels, and smaller than its contents.
    bool Open() {
        const QRect place(20, 40, 900, 700);
        if (!StepPanel::Open()) return false;
        Main().setGeometry(place);
        QRect before;  // until the layout stands still
        return WaitFor([&] {
            const bool still = std::exchange(before, Frame()) == Frame();
            return still && Main().geometry() == place;
        });
    }
    QScrollArea& View() { return *Main().findChild<QScrollArea*>(); }
    // What the display shows of a control.
    static QRect Pixels(const QWidget& control) {
        return {(control.mapToGlobal(QPointF(0, 0)) * Scale).toPoint(), control.size() * Scale};
    }
    QRect Frame() {
        return Pixels(Get<QFrame>("fraSTEPLIST")).intersected(Pixels(*View().viewport()));
    }
    // Clicks on a control; at its lower end, where that is asked for.
    static void ClickOn(const QWidget& control, int button = 1, bool atEnd = false) {
        const QRect area = Pixels(control);
        const QPoint place(area.center().x(),
                           atEnd ? area.bottom() - 5 * Scale : area.center().y());
        MoveTo(place + QPoint(Scale, 0));  // a pointer that is there already would not be told of
        MoveTo(place);
        EXPECT_TRUE(WaitFor([&] { return control.underMouse(); }));
        Xdotool(QStringLiteral("click %1").arg(button));
    }

  private:
    // By its key, as soon as it can take one.
    void AnswerBox() {
        QWidget& box = *QApplication::activeModalWidget();
        EXPECT_TRUE(WaitFor([&] { return box.isActiveWindow(); }));
        EXPECT_EQ(Reach(), Screen);
        Xdotool("key Return");
        EXPECT_TRUE(WaitFor([&] { return !box.isVisible(); })) << qPrintable(Boxes.LastText());
        box.close();
    }
};

struct RealPointer : testing::Test, RealPanel {
    void SetUp() override { ASSERT_TRUE(Open()); }
    bool Answered(std::size_t times) {
        return WaitFor(
            [&] { return Boxes.Shown.size() == times && Field("txPVOLT", 0).hasFocus(); });
    }
};

TEST_F(RealPointer, StaysWithTheEditedRowAndLeavesNoButtonDownBehindABox) {
    QLineEdit& field = Field("txPVOLT", 0);
    EXPECT_EQ(Reach(), Screen);
    Type("txPVOLT_0", "151");
    EXPECT_TRUE(WaitFor([&] { return Reach() == Frame(); }));
    Xdotool("key alt+d");
    ASSERT_TRUE(MenuIsOpen());
    EXPECT_EQ(Reach(), Screen);
    Xdotool("key Escape");
    EXPECT_TRUE(WaitFor([&] { return Reach() == Frame(); }));
    EXPECT_EQ(Main().focusWidget(), Main().menuBar());
    ClickOn(Button(0));
    ASSERT_TRUE(Answered(1));
    EXPECT_FALSE(Button(0).isDown());
    EXPECT_EQ(field.selectedText(), "151");
    EXPECT_EQ(Reach(), Frame());
    Xdotool("key Tab");  // from field to field, with the same box on the way
    ASSERT_TRUE(Answered(2));
    Xdotool("type 7");
    Xdotool("key alt");
    EXPECT_TRUE(WaitFor([&] { return Main().focusWidget() == Main().menuBar(); }));
    ClickOn(Button(0));
    ASSERT_TRUE(WaitFor([&] { return field.text() == "7.00"; }));
    EXPECT_EQ(Sent(), Only({27, 'V', 2, 0xBC, 0, 0}));
    EXPECT_EQ(Reach(), Screen);
}

TEST_F(RealPointer, ScrollsTheListByItsWheelAndLeavesNoPressOnTheBarBehindABox) {
    // Pressed by mistake while it is turned, the wheel pastes nothing.
    const QString volts = Field("txPVOLT", 0).text();
    QApplication::clipboard()->setText("9", QClipboard::Selection);
    ClickOn(Field("txPVOLT", 0), 2);
    EXPECT_FALSE(WaitFor([&] { return Field("txPVOLT", 0).text() != volts; }, 300ms));
    ClickOn(Field("txPVOLT", 2), 5);
    EXPECT_TRUE(WaitFor([&] { return Bar().value() > 0; }));
    EXPECT_EQ(Field("txPVOLT", 2).text(), volts);
    Bar().setValue(0);
    Type("txtPAUTOSTEP", "05");
    ClickOn(Bar(), 1, true);
    ASSERT_TRUE(WaitFor([&] { return !Boxes.Shown.empty() && Main().isActiveWindow(); }));
    // As long as a press would take to repeat itself.
    EXPECT_FALSE(WaitFor([&] { return Bar().value() > 1; }, 1s)) << Bar().value();
    EXPECT_EQ(Boxes.Shown.size(), 1U);
}

TEST_F(RealPointer, ShiftsWithTheLockedRowWhateverMovesIt) {
    Type("txPVOLT_0", "5");
    const QString id = QString::number(Main().winId());
    const auto size = [&](int width, int height) {
        Xdotool(QString("windowsize %1 %2 %3").arg(id).arg(width * Scale).arg(height * Scale));
    };
    QScrollBar& bar = *View().verticalScrollBar();
    const std::pair<const char*, std::function<void()>> shifts[]{
        {"moved", [&] { Xdotool("windowmove " + id + " 160 170"); }},
        {"scrolled", [&] { bar.setValue(bar.value() == 0 ? bar.maximum() : 0); }},
        {"made narrow: the list goes below the switches", [&] { size(700, 900); }},
        {"made low: less of the list shows", [&] { size(700, 560); }},
        {"maximised", [&] { Main().showMaximized(); }},
        {"as it was", [&] { Main().showNormal(); }},
    };
    for (const auto& [what, shift] : shifts) {
        const QRect before = Frame();
        shift();
        EXPECT_TRUE(WaitFor([&] { return Frame() != before && Reach() == Frame(); })) << what;
    }
    Xdotool("key Escape");
    EXPECT_TRUE(WaitFor([] { return Reach() == Screen; }));
}

TEST(RealDisplay, IsFreeAfterThePanelWasKilled) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"hold"});
    ASSERT_TRUE(WaitFor([&] { return process.canReadLine(); }));
    EXPECT_TRUE(WaitFor([] { return !Reach().contains(Screen); }));
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_TRUE(WaitFor([] { return Reach() == Screen; }));
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
