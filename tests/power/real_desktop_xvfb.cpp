// The panel under a real pointer and real keys, with the toolkit's own message boxes.
#include "controls/message_boxes.h"
#include "record/record.h"
#include "tests/power/run_panel.h"

#include <QClipboard>
#include <QMenuBar>
#include <QProcess>
#include <QScrollArea>

#include <algorithm>

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

struct RealPointer : testing::Test, SimulatedPanel {
    RealPointer() {
        Pointer.Real = platform::MakePointerConfinement();
        Boxes.WhileUp = [this](const Message& message) {
            QTimer::singleShot(0, &Main(), [this] { AnswerBox(); });
            ToolkitMessageBoxes().Show(&Main(), message);
        };
    }
    // At a place that is a whole one also in the toolkit's pixels, and smaller than its contents.
    void SetUp() override {
        const QRect place(20, 40, 900, 700);
        ASSERT_TRUE(Open());
        Main().setGeometry(place);
        QRect before;  // until the layout stands still
        ASSERT_TRUE(WaitFor([&] {
            const bool still = std::exchange(before, Frame()) == Frame();
            return still && Main().geometry() == place;
        }));
    }
    bool Answered(std::size_t times) {
        return WaitFor(
            [&] { return Boxes.Shown.size() == times && InRow(0, "txPVOLT").hasFocus(); });
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

TEST_F(RealPointer, StaysWithTheEditedRowAndLeavesNoButtonDownBehindABox) {
    QLineEdit& field = InRow(0, "txPVOLT");
    EXPECT_EQ(Reach(), Screen);
    Type("txPVOLT_0", "151");
    EXPECT_TRUE(WaitFor([&] { return Reach() == Frame(); }));
    Xdotool("key alt+d");
    ASSERT_TRUE(MenuIsOpen());
    EXPECT_EQ(Reach(), Screen);
    Xdotool("key Escape");
    EXPECT_TRUE(WaitFor([&] { return Reach() == Frame(); }));
    EXPECT_EQ(Main().focusWidget(), Main().menuBar());
    ClickOn(StepButton(0));
    ASSERT_TRUE(Answered(1));
    EXPECT_FALSE(StepButton(0).isDown());
    EXPECT_EQ(field.selectedText(), "151");
    EXPECT_EQ(Reach(), Frame());
    Xdotool("key Tab");  // from field to field, with the same box on the way
    ASSERT_TRUE(Answered(2));
    Xdotool("type 7");
    Xdotool("key alt");
    EXPECT_TRUE(WaitFor([&] { return Main().focusWidget() == Main().menuBar(); }));
    ClickOn(StepButton(0));
    ASSERT_TRUE(WaitFor([&] { return field.text() == "7.00"; }) && Settle());
    EXPECT_EQ(Frames(), Only({27, 'V', 2, 0xBC, 0, 0}));
    EXPECT_EQ(Reach(), Screen);
}

TEST_F(RealPointer, ScrollsTheListByItsWheelAndLeavesNoPressOnTheBarBehindABox) {
    // Pressed by mistake while it is turned, the wheel pastes nothing.
    const QString volts = InRow(0, "txPVOLT").text();
    QApplication::clipboard()->setText("9", QClipboard::Selection);
    ClickOn(InRow(0, "txPVOLT"), 2);
    EXPECT_FALSE(WaitFor([&] { return InRow(0, "txPVOLT").text() != volts; }, 300ms));
    ClickOn(InRow(2, "txPVOLT"), 5);
    EXPECT_TRUE(WaitFor([&] { return Bar().value() > 0; }));
    EXPECT_EQ(InRow(2, "txPVOLT").text(), volts);
    Bar().setValue(0);
    Type("txtPAUTOSTEP", "05");
    ClickOn(Bar(), 1, true);
    ASSERT_TRUE(WaitFor([&] { return !Boxes.Shown.empty() && Main().isActiveWindow(); }));
    // As long as a press would take to repeat itself.
    EXPECT_FALSE(WaitFor([&] { return Bar().value() > 1; }, 1s)) << Bar().value();
    EXPECT_EQ(Boxes.Shown.size(), 1U);
}

TEST_F(RealPointer, OpensTheRecordFromThePillAndUsesItBesideAWindowThatDisablesTheMainOne) {
    Program& program = SimulatedPanel::Run;
    ClickOn(Get<QLabel>("lblPOLL"));
    ASSERT_TRUE(WaitFor([&] { return program.Record() && program.Record()->isActiveWindow(); }));
    RECORD& record = *program.Record();
    Choose("mnuSET_MANU");
    ASSERT_TRUE(WaitFor([&] { return program.Settings()->isActiveWindow(); }));
    record.setGeometry(30, 40, 500, 400);
    record.raise();
    auto& errors = *record.findChild<QAbstractButton*>("optERRORS");
    ClickOn(errors);
    EXPECT_TRUE(WaitFor([&] { return errors.isChecked() && record.isActiveWindow(); }));
    Xdotool("key Escape");
    EXPECT_TRUE(WaitFor([&] { return !record.isVisible(); }));
    EXPECT_TRUE(program.Settings() && !Main().isEnabled());
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
        {"made narrow: the list goes below the switches", [&] { size(700, 900); }},
        {"made low: less of the list shows", [&] { size(700, 560); }},
        {"scrolled", [&] { bar.setValue(bar.value() == 0 ? bar.maximum() : 0); }},
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

}  // namespace
}  // namespace zps::tests
