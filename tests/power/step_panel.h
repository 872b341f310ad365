// The panel with its step list in use, and what its tests ask it.
#pragma once

#include "tests/power/run_panel.h"

#include <QDialog>
#include <QTimer>

namespace zps::tests {

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
