// The step list under wheel and scroll bar.
#include "tests/power/step_panel.h"

#include <QScrollArea>
#include <QStyleOptionSlider>
#include <QWheelEvent>

#include <utility>

namespace zps::tests {
namespace {

struct StepScroll : StepTest {
    // The button goes down over the lower arrow and, where a box is up, comes up over the box.
    void PressArrow() {
        QStyleOptionSlider option;
        option.initFrom(&Bar());
        option.orientation = Qt::Vertical;
        option.maximum = Bar().maximum();
        option.pageStep = Bar().pageStep();
        const QRect arrow = Bar().style()->subControlRect(QStyle::CC_ScrollBar, &option,
                                                          QStyle::SC_ScrollBarAddLine, &Bar());
        QTest::mousePress(&Bar(), Qt::LeftButton, {}, arrow.center());
    }
    // Longer than a bar waits before it repeats a press by itself.
    bool RunsAway() {
        const int value = Bar().value();
        return WaitFor([&] { return Bar().value() != value; }, 900ms);
    }
    int Turn(const char* over, int notches) {
        auto& control = Get<QWidget>(over);
        const QPointF place = control.rect().center();
        QWheelEvent turn(place, control.mapToGlobal(place), {}, {0, -120 * notches}, Qt::NoButton,
                         Qt::NoModifier, Qt::NoScrollPhase, false);
        QSpontaneKeyEvent::setSpontaneous(&turn);  // only such a one is passed on to parents
        qApp->notify(&control, &turn);
        return std::exchange(Before, Bar().value()) - Bar().value();
    }
    int Before = 0;
};

TEST_F(StepScroll, APressEndsWithTheBoxThatComesUpInItOrOverIt) {
    Type("txtPAUTOSTEP", "05");
    PressArrow();
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_FALSE(RunsAway());
    EXPECT_EQ(Bar().value(), 0);
    EXPECT_TRUE(Get<QWidget>("txtPAUTOSTEP").hasFocus());
    EXPECT_LT(Turn("vscAUTOSTEP", 1), 0);  // the operator has been told
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    Boxes.Shown.clear();
    Type("txtPAUTOSTEP", "");
    Leave();
    const int before = Bar().value();
    PressArrow();
    EXPECT_EQ(Bar().value(), before + 1);
    EXPECT_TRUE(RunsAway());  // it is still down
    Boxes.WhileUp({});
    EXPECT_FALSE(RunsAway());
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(StepScroll, TheWheelScrollsAnywhereOverTheRowsAndChangesNoValue) {
    for (const char* over : {"vscAUTOSTEP", "fraSTEPLIST", "txPSTEP_2", "txPVOLT_0", "txPOVP_6"}) {
        SCOPED_TRACE(over);
        EXPECT_LT(Turn(over, 1), 0);
        EXPECT_GT(Turn(over, -1), 0);
        EXPECT_EQ(Turn(over, -1), 0);
    }
    EXPECT_EQ(Source().StepVolt(0) + Field("txPVOLT", 0).text().toStdString(), "0.000.00");
    Main().resize(700, 400);
    auto& view = *Main().findChild<QScrollArea*>()->verticalScrollBar();
    ASSERT_TRUE(WaitFor([&] { return view.maximum() > 0; }));
    Type("txPVOLT_0", "3");
    const int place = view.value();
    for (const char* over : {"vscAUTOSTEP", "fraSTEPLIST", "txPVOLT_0", "txPVOLT_1"}) {
        EXPECT_EQ(Turn(over, 1), 0) << over;
        EXPECT_EQ(view.value(), place) << over;
    }
    EXPECT_TRUE(Locked() && Sent().empty());
    Leave();
    Type("txtPAUTOCOUNT", "50001");
    EXPECT_EQ(Turn("txPTIME_3", 1), 0);
    EXPECT_EQ(Boxes.Shown.size(), 1U);
}

}  // namespace
}  // namespace zps::tests
