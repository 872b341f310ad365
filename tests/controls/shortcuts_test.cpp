#include "controls/shortcuts.h"

#include "tests/support/panel.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

// Presses or releases a key at a time, in ms; whether a shortcut of it would be looked for.
bool Send(QWidget& to, QEvent::Type type, int key, ulong time, bool repeated = false) {
    QKeyEvent event(type, key, Qt::NoModifier, {}, repeated);
    event.setTimestamp(time);
    event.ignore();
    QApplication::sendEvent(&to, &event);
    return !event.isAccepted();
}

TEST(KeyThatIsHeld, CountsOnceHoweverTheSystemTellsOfIt) {
    QPushButton button;
    int clicks = 0;
    QObject::connect(&button, &QPushButton::clicked, [&] { ++clicks; });
    const auto press = [&](int key, ulong time, bool repeated = false) {
        const bool looked = Send(button, QEvent::ShortcutOverride, key, time, repeated);
        Send(button, QEvent::KeyPress, key, time, repeated);
        return looked;
    };
    const auto release = [&](int key, ulong time) { Send(button, QEvent::KeyRelease, key, time); };
    for (const int key : {int(Qt::Key_Space), int(Qt::Key_F9)}) {
        EXPECT_TRUE(press(key, 1000));
        for (ulong time = 1660; time < 2000; time += 40) {
            release(key, time);
            EXPECT_FALSE(press(key, time));
        }
        EXPECT_FALSE(press(key, 2000, true));
        release(key, 2010);
        EXPECT_TRUE(press(key, 2020)) << "pressed anew";
        release(key, 2090);
    }
    EXPECT_EQ(clicks, 2);
    release(Qt::Key_Backspace, 3000);  // text keys go on repeating
    EXPECT_TRUE(press(Qt::Key_Backspace, 3000));
}

}  // namespace
}  // namespace zps::tests
