#include "platform/pointer_confinement.h"
#include "tests/platform/framed_window.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>

// Another process with a confined pointer, for the test to kill: tells where its frame is.
static int HoldPointer(bool withPopUp) {
    zps::platform::FramedWindow framed;
    const auto confinement = zps::platform::MakePointerConfinement();
    if (!framed.Show()) return 1;
    confinement->Confine(framed.Frame);
    const QRect area = framed.PixelsOf(framed.Frame);
    if (withPopUp) framed.PopUp.popup(framed.Frame.mapToGlobal(QPoint(20, 20)));
    if (withPopUp && !QTest::qWaitForWindowExposed(&framed.PopUp)) return 1;
    std::printf("%d %d %d %d\n", area.x(), area.y(), area.width(), area.height());
    std::fflush(stdout);
    return QApplication::exec();
}

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    if (application.arguments().contains("hold")) return HoldPointer(false);
    if (application.arguments().contains("hold-with-pop-up")) return HoldPointer(true);
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
