#include "controls/shortcuts.h"

#include "tests/support/panel.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

// Whether a shortcut of the key would be looked for.
bool Press(QPushButton& button, int key, ulong time, bool repeated = false) {
    const auto send = [&](QEvent::Type type) {
        QKeyEvent event(type, key, Qt::NoModifier, {}, repeated);
        event.setTimestamp(time);
        event.ignore();
        QApplication::sendEvent(&button, &event);
        return event.isAccepted();
    };
    const bool taken = send(QEvent::ShortcutOverride);
    send(QEvent::KeyPress);
    return !taken;
}

void Release(QPushButton& button, int key, ulong time) {
    QKeyEvent event(QEvent::KeyRelease, key, Qt::NoModifier);
    event.setTimestamp(time);
    QApplication::sendEvent(&button, &event);
}

TEST(KeyThatIsHeld, CountsOnceHoweverTheSystemTellsOfIt) {
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    for (const int key : {int(Qt::Key_Space), int(Qt::Key_F9)}) {
        EXPECT_TRUE(Press(button, key, 1000));
        for (ulong time = 1660; time < 2000; time += 40) {
            Release(button, key, time);
            EXPECT_FALSE(Press(button, key, time));
        }
        EXPECT_FALSE(Press(button, key, 2000, true));
        Release(button, key, 2010);
        EXPECT_TRUE(Press(button, key, 2020)) << "pressed anew";
        Release(button, key, 2090);
    }
    EXPECT_EQ(clicks, 2);
    // Text keys go on repeating.
    Release(button, Qt::Key_Backspace, 3000);
    EXPECT_TRUE(Press(button, Qt::Key_Backspace, 3000));
}

}  // namespace
}  // namespace zps::tests
