// What the cases of the settings window share: its frames, the answers of a supply, and what a
// person does and sees.
#pragma once

#include "tests/support/panel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace zps::tests {

inline const QString GoodAck = QStringLiteral("통신ok = ACK수신!!!");
inline const QString GoodData = QStringLiteral("통신ok = DATA수신!!!");
inline const Bytes Enq{1, 5, 6};
inline const Bytes Dle{1, 16, 17};
inline const Bytes Ack{1, 6, 7};
inline const Bytes Nak{1, 21, 22};

inline std::uint8_t Low(int value) {
    return static_cast<std::uint8_t>(value & 0xFF);
}
// The four frames that identify and initialise the supply at `address`.
inline std::vector<Bytes> ChainOf(int address) {
    const Bytes init{27, 'A', 0, 27, 'W', 0, 27, 'G', 0, 27, 'X', 0, 27, 'B', 255, 27, 'F', 0, 0};
    return {Control(address, 5), Control(address, 19), Framed(address, init), Control(address, 16)};
}

inline Bytes RatingsReply(int tenthsOfVolt, int tenthsOfAmpere) {
    const int v = tenthsOfVolt;
    const int a = tenthsOfAmpere;
    return {1, 2, 9, 64, 0, Low(v / 256), Low(v), 0, 0, Low(a / 256), Low(a), 0, 0, 0};
}
// A supply at address 1 that acknowledges everything and tells 150 V and 10 A.
inline Bytes GoodSupply(const Bytes& block) {
    return block == Dle ? RatingsReply(1500, 100) : Ack;
}

// Chooses from a list with the keyboard, the present entry too.
inline void Pick(Panel& panel, const char* name, int index) {
    auto& list = panel.GetSetting<QComboBox>(name);
    list.showPopup();
    list.view()->setCurrentIndex(list.model()->index(index, 0));
    QTest::keyClick(list.view(), Qt::Key_Return);
}
inline void Press(Panel& panel, const char* button) {
    auto& pressed = panel.GetSetting<QAbstractButton>(button);
    QTest::mouseClick(&pressed, Qt::LeftButton, {}, {8, pressed.height() / 2});
}

// Whether nothing is written for longer than any interval of the windows.
inline bool StaysQuiet(const ScriptedLine& line) {
    const auto written = line.Written().size();
    return !WaitFor([&] { return line.Written().size() != written; }, 280ms);
}

}  // namespace zps::tests
