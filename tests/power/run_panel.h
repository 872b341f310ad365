// What the tests of the main window's daily work share.
#pragma once

#include "controls/lamp.h"
#include "tests/support/panel.h"

#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTimer>

#include <gtest/gtest.h>

#include <string>
#include <tuple>

namespace zps::tests {

using enum Colour;

// The texts of labels, buttons and fields.
inline std::string Texts(Panel& panel, std::initializer_list<const char*> controls) {
    QStringList texts;
    for (const char* name : controls) texts += panel.Get<QWidget>(name).property("text").toString();
    return texts.join(' ').toStdString();
}

// The supply has 150 V, 2 A or what is told, and address 1. It answers a poll with `Data` and
// anything else with an acknowledgement, unless the test has put another answer on the line.
class ScriptedRun : public testing::Test, protected ScriptedPanel {
  protected:
    explicit ScriptedRun(std::uint8_t tenthsOfAmpere = 20) { Data[10] = tenthsOfAmpere; }
    void SetUp() override {
        Line().Otherwise([this](const Bytes& sent) { return sent[1] == 16 ? Data : Acknowledged; });
        Program& program = ScriptedPanel::Run;
        program.StartUp();
        ASSERT_TRUE(WaitForDataResult("통신ok = DATA수신!!!"));
        program.Settings()->close();
        ASSERT_TRUE(Handled(Data));
        Line().ForgetWritten();
    }

    // Waits until a poll has been answered by `data` and the answer has been handled.
    bool Handled(const Bytes& data) {
        Source().WasJudged({}, Source().RxResult());
        Data = data;
        return WaitFor([&] { return Source().RxFrame() == data; }) && Settle();
    }
    // Clicks a button and waits until the supply has answered.
    bool Press(const char* button) { return Click(button), Settle(); }
    bool SwitchOn() { return Click("cmdOUTPUT"), Handled(Reading(4)); }
    // A data reply of 12.1 V, 0.1 A and step 3.
    static Bytes Reading(int status, std::uint8_t code = 0) {
        const auto bits = static_cast<std::uint8_t>(status);
        return {1, 2, 9, bits, code, 0, 0x2F, 0x44, 0, 0x27, 0x10, 3, 0, 0};
    }

    // What has been sent since the last call: ? for a poll, l and r for going to local and to
    // remote, U for an upload, else the letter and the first byte of a command.
    std::string Sent() {
        std::string all;
        for (const Bytes& frame : Line().WrittenData()) {
            if (frame.size() == 3) all += "?l r"[frame[1] - 16];
            if (frame.size() == 32) all += 'U';
            if (frame.size() != 3 && frame.size() != 32)
                all += static_cast<char>(frame[4]) + std::to_string(frame[5]);
        }
        Line().ForgetWritten();
        return all;
    }
    Bytes LastFrame() { return Line().WrittenData().back(); }
    bool AreSent(std::size_t frames, std::chrono::milliseconds limit = 5s) {
        return WaitFor([&] { return Line().Written().size() >= frames; }, limit);
    }
    Colour Lit(const char* lamp) { return Get<Lamp>(lamp).Lit(); }

    const Bytes Acknowledged{1, 6, 7};
    Bytes Data{1, 2, 9, 0, 0, 0x05, 0xDC, 0x06, 0x63, 0, 20, 0, 3, 0};
};

inline std::vector<Bytes> Only(const Bytes& commands) {
    return {Framed(1, commands)};
}

class StepTest : public ScriptedRun {
  protected:
    StepTest() : ScriptedRun(100) {
        // As a real box does, this one takes the activation from the window for a while.
        Boxes.WhileUp = [this](const Message&) {
            EXPECT_EQ(Pointer.Within, nullptr);
            QDialog box(&Main());
            QTimer::singleShot(0, &box, [&box] {
                EXPECT_TRUE(QTest::qWaitForWindowActive(&box));
                box.accept();
            });
            box.exec();
            Main().activateWindow();
        };
    }

    // The frames since the last call, once all are answered; polls apart.
    std::vector<Bytes> Frames() {
        EXPECT_TRUE(Settle());
        auto frames = Line().WrittenData();
        std::erase(frames, Control(1, 16));
        Line().ForgetWritten();
        return frames;
    }
    std::vector<Bytes> Upload(int row) {
        QTest::mouseClick(&StepButton(row), Qt::LeftButton);
        return Frames();
    }
    // Which of button, voltage, current, time, slope and over-voltage can be used, row by row.
    QString Usable() {
        const char* const columns[]{"txPSTEP", "txPVOLT",  "txPCURR",
                                    "txPTIME", "txPSLOPE", "txPOVP"};
        QStringList rows;
        for (int row = 0; row < RowCount; ++row) {
            QString usable;
            for (std::size_t place = 0; place < std::size(columns); ++place) {
                auto& control = InRow<QWidget>(row, columns[place]);
                if (control.isEnabledTo(control.parentWidget())) usable += "BVCTSO"[place];
            }
            rows += usable.isEmpty() ? "-" : usable;
        }
        return rows.join(' ');
    }
    bool Locked() { return Pointer.Within == &Get<QWidget>("fraSTEPLIST") && !Bar().isEnabled(); }
    bool Released() { return Pointer.Within == nullptr && Bar().isEnabled(); }
};

}  // namespace zps::tests
