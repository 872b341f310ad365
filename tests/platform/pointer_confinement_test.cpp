#include "platform/pointer_confinement.h"

#include "tests/platform/framed_window.h"

#include <QApplication>
#include <QProcess>

#include <gtest/gtest.h>

#include <memory>

namespace zps::platform {
namespace {

// The real pointer of the display.
QString Xdotool(const QStringList& arguments) {
    QProcess process;
    process.start("xdotool", arguments);
    EXPECT_TRUE(process.waitForFinished(10'000) && process.exitCode() == 0);
    return QString::fromUtf8(process.readAllStandardOutput());
}

QPoint Place() {
    const QStringList lines = Xdotool({"getmouselocation", "--shell"}).split('\n');
    return {lines.value(0).section('=', 1).toInt(), lines.value(1).section('=', 1).toInt()};
}

QPoint MoveTo(const QPoint& place) {
    Xdotool({"mousemove", QString::number(place.x()), QString::number(place.y())});
    return Place();
}

constexpr QPoint Corner(3, 3);
constexpr QPoint OtherCorner(1200, 1000);

bool PointerIsFree() {
    return MoveTo(Corner) == Corner && MoveTo(OtherCorner) == OtherCorner;
}

class PointerConfinementTest : public testing::Test, public FramedWindow {
  protected:
    void SetUp() override { ASSERT_TRUE(Show()); }

    bool PointerIsInFrame() const {
        const QRect area = PixelsOf(Frame);
        return MoveTo(Corner) == area.topLeft() && MoveTo(OtherCorner) == area.bottomRight();
    }
    static void ClickAt(const QPoint& place) {
        MoveTo(place);
        Xdotool({"click", "1"});
    }

    std::unique_ptr<PointerConfinement> Confinement = MakePointerConfinement();
};

TEST_F(PointerConfinementTest, ThePointerStaysInTheFrameUntilItIsReleased) {
    EXPECT_TRUE(PointerIsFree());
    Confinement->Confine(Frame);
    EXPECT_TRUE(PointerIsInFrame());
    Xdotool({"mousemove_relative", "--", "-900", "-900"});
    EXPECT_EQ(Place(), PixelsOf(Frame).topLeft());
    Confinement->Release();
    EXPECT_TRUE(PointerIsFree());
    Confinement->Confine(Frame);
    Confinement.reset();
    EXPECT_TRUE(PointerIsFree());
}

TEST_F(PointerConfinementTest, ClicksInTheFrameReachItsButtonsAndLeaveThePointerConfined) {
    int clicked = 0;
    int clickedOutside = 0;
    QObject::connect(&Inside, &QPushButton::clicked, [&] { ++clicked; });
    QObject::connect(&Outside, &QPushButton::clicked, [&] { ++clickedOutside; });
    const QPoint button = PixelsOf(Inside).center();
    MoveTo(button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Inside.underMouse(); }));
    Confinement->Confine(Frame);
    ClickAt(button + QPoint(1, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked == 1; }));
    EXPECT_TRUE(Inside.underMouse());
    ClickAt(PixelsOf(Outside).center());
    ClickAt(button);
    EXPECT_TRUE(QTest::qWaitFor([&] { return clicked == 2; }));
    EXPECT_EQ(clickedOutside, 0);
    EXPECT_TRUE(PointerIsInFrame());
}

TEST_F(PointerConfinementTest, ConfiningAgainTakesTheFramesNextRectangle) {
    Confinement->Confine(Frame);
    Frame.setGeometry(20, 110, 250, 90);
    Confinement->Confine(Frame);
    EXPECT_TRUE(PointerIsInFrame());
    const QPoint before = PixelsOf(Frame).topLeft();
    Window.move(100, 20);
    EXPECT_TRUE(
        QTest::qWaitFor([&] { return PixelsOf(Frame).topLeft() != before && PointerIsInFrame(); }));
}

TEST_F(PointerConfinementTest, APopUpHasThePointerToItselfUntilItCloses) {
    Confinement->Confine(Frame);
    PopUp.popup(Frame.mapToGlobal(QPoint(20, 20)));
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&PopUp));
    EXPECT_TRUE(PointerIsFree());
    Confinement->Confine(Frame);
    EXPECT_TRUE(PointerIsFree());
    PopUp.close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return PointerIsInFrame(); }));
    Confinement->Release();
    EXPECT_TRUE(PointerIsFree());
}

TEST(KilledProcessTest, LeavesThePointerFree) {
    QProcess process;
    process.start(QCoreApplication::applicationFilePath(), {"hold"});
    ASSERT_TRUE(QTest::qWaitFor([&] { return process.canReadLine(); }, 20'000));
    EXPECT_FALSE(PointerIsFree());
    process.kill();
    ASSERT_TRUE(process.waitForFinished());
    EXPECT_TRUE(QTest::qWaitFor(PointerIsFree));
}

}  // namespace
}  // namespace zps::platform
