// What the cases of the settings window share.
#pragma once

#include "set_manual/result_look.h"
#include "tests/support/panel.h"

#include <QAbstractItemView>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QRadioButton>

namespace zps::tests {

inline const QString GoodData = QStringLiteral("통신ok = DATA수신!!!");
inline const Bytes Enq{1, 5, 6};
inline const Bytes Dle{1, 16, 17};
inline const Bytes Ack{1, 6, 7};
inline const Bytes Nak{1, 21, 22};

// The four frames that identify and initialise the supply at `address`.
inline std::vector<Bytes> ChainOf(int address) {
    const Bytes init{27, 'A', 0, 27, 'W', 0, 27, 'G', 0, 27, 'X', 0, 27, 'B', 255, 27, 'F', 0, 0};
    return {Control(address, 5), Control(address, 19), Framed(address, init), Control(address, 16)};
}

inline Bytes RatingsReply(int tenthsOfVolt, int tenthsOfAmpere, std::uint8_t address = 1) {
    const auto high = [](int value) { return static_cast<std::uint8_t>(value >> 8); };
    const auto low = [](int value) { return static_cast<std::uint8_t>(value); };
    const int v = tenthsOfVolt, a = tenthsOfAmpere;
    return {address, 2, 9, 64, 0, high(v), low(v), 0, 0, high(a), low(a), 0, 0, 0};
}
// At any address one that acknowledges everything; at 1 of 150 V and 10 A, else of 20 V and 5 A.
inline Bytes GoodSupply(const Bytes& block) {
    if (block != Control(block[0], 16)) return Control(block[0], 6);
    return block[0] == 1 ? RatingsReply(1500, 100) : RatingsReply(200, 50, block[0]);
}

// Starts the program on a line of good supplies and waits until the one at 1 is identified.
inline bool Identify(ScriptedPanel& panel) {
    panel.Line().Otherwise(GoodSupply);
    panel.Run.StartUp();
    return panel.WaitForDataResult(GoodData);
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

// Whether the two results, of 통신 확인 and of DATA 확인, look like this.
inline bool Show(Panel& panel, const ResultLook& enq, const ResultLook& dle) {
    const auto shows = [&panel](const char* name, const ResultLook& look) {
        auto& label = panel.GetSetting<QLabel>(name);
        return label.text() == look.Caption &&
               label.grab().toImage().pixelColor(4, 4) == ToQColor(look.Paint);
    };
    return shows("lblZPS_ENQ", enq) && shows("lblZPS_DLE", dle);
}

// How the four stages of the check stand: + done, - failed, > running, . open.
inline QString Rail(Panel& panel) {
    QString all;
    for (const char* name : {"lblSTAGE_1", "lblSTAGE_2", "lblSTAGE_3", "lblSTAGE_4"}) {
        const QString word = panel.GetSetting<QLabel>(name).accessibleName().section(' ', 1);
        all += QStringLiteral("+->.")[QStringList{"완료", "실패", "진행 중", "대기"}.indexOf(word)];
    }
    return all;
}
inline QString Next(Panel& panel) {
    return panel.GetSetting<QLabel>("lblNEXT").text();
}

// Whether nothing is written for longer than any interval of the windows.
inline bool StaysQuiet(const ScriptedLine& line) {
    const auto written = line.Written().size();
    return !WaitFor([&] { return line.Written().size() != written; }, 280ms);
}

}  // namespace zps::tests
