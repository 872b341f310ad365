#include "platform/pointer_confinement.h"
#include "tests/platform/framed_window.h"

#include <QApplication>

#include <gtest/gtest.h>

#include <cstdio>

// Another process with a confined pointer, for the test to kill: tells when it has it.
static int HoldPointer() {
    zps::platform::FramedWindow framed;
    const auto confinement = zps::platform::MakePointerConfinement();
    if (!framed.Show()) return 1;
    confinement->Confine(framed.Frame);
    std::puts("confined");
    std::fflush(stdout);
    return QApplication::exec();
}

int main(int count, char** arguments) {
    QApplication application(count, arguments);
    if (application.arguments().contains("hold")) return HoldPointer();
    testing::InitGoogleTest(&count, arguments);
    return RUN_ALL_TESTS();
}
