// The panel under a real pointer and real keys, with the toolkit's own message boxes.
#pragma once

#include "controls/message_boxes.h"
#include "tests/power/step_panel.h"

#include <QPointer>
#include <QProcess>
#include <QScrollArea>

#include <algorithm>

namespace zps::tests {

inline QString Xdotool(const QString& commands) {
    QProcess process;
    process.start("xdotool", commands.split(' '));
    EXPECT_TRUE(process.waitForFinished(20'000) && process.exitCode() == 0) << qPrintable(commands);
    return QString::fromUtf8(process.readAllStandardOutput());
}

// The display's pixels for one of the toolkit's.
inline const int Scale = std::max(1, qEnvironmentVariableIntValue("QT_SCALE_FACTOR"));
inline const QRect Screen({3, 3}, QPoint(1200, 1000) * Scale);

// Where a pointer ends that is sent to the place.
inline QPoint MoveTo(const QPoint& place) {
    const QString asked = "mousemove %1 %2 getmouselocation --shell";
    const QStringList lines = Xdotool(asked.arg(place.x()).arg(place.y())).split('\n');
    return {lines.value(0).section('=', 1).toInt(), lines.value(1).section('=', 1).toInt()};
}

// The corners that the pointer reaches.
inline QRect Reach() {
    const QPoint first = MoveTo(Screen.topLeft());
    return {first, MoveTo(Screen.bottomRight())};
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

}  // namespace zps::tests
