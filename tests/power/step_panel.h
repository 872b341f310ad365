// The panel with its step list in use, and what its tests ask it.
#pragma once

#include "tests/support/panel.h"

#include <QDialog>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollBar>
#include <QTimer>

#include <gtest/gtest.h>

#include <utility>

namespace zps::tests {

struct StepPanel : SimulatedPanel {
    explicit StepPanel(simulator::SupplyOptions supply = {}) : SimulatedPanel({supply}) {
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

    QLineEdit& Field(const char* name, int row) {
        return Get<QLineEdit>(qPrintable(QString("%1_%2").arg(name).arg(row)));
    }
    QPushButton& Button(int row) {
        return Get<QPushButton>(qPrintable(QString("txPSTEP_%1").arg(row)));
    }
    QScrollBar& Bar() { return Get<QScrollBar>("vscAUTOSTEP"); }

    // The frames since the last call, once all are answered; polls apart.
    std::vector<Bytes> Sent() {
        EXPECT_TRUE(Settle());
        return Frames();
    }
    std::vector<Bytes> Upload(int row) {
        QTest::mouseClick(&Button(row), Qt::LeftButton);
        return Sent();
    }
    // Which of button, voltage, current, time, slope and over-voltage can be used, row by row.
    QString Usable() {
        const QStringList columns{"txPSTEP", "txPVOLT", "txPCURR", "txPTIME", "txPSLOPE", "txPOVP"};
        QStringList rows;
        for (int row = 0; row < RowCount; ++row) {
            QString usable;
            for (int place = 0; place < columns.size(); ++place) {
                auto& control = Get<QWidget>(qPrintable(columns[place] + QString("_%1").arg(row)));
                if (control.isEnabledTo(control.parentWidget())) usable += "BVCTSO"[place];
            }
            rows += usable.isEmpty() ? "-" : usable;
        }
        return rows.join(' ');
    }
    bool Locked() { return Pointer.Within == &Get<QWidget>("fraSTEPLIST") && !Bar().isEnabled(); }
    bool Released() { return Pointer.Within == nullptr && Bar().isEnabled(); }
    bool SwitchOutput(bool on) {
        Click("cmdOUTPUT");
        return WaitFor([&] { return Line().StateOf(1).Output == on && !Source().RxBusy; });
    }
};

inline std::vector<Bytes> Only(const Bytes& commands) {
    return {Framed(1, commands)};
}

class StepTest : public testing::Test, public StepPanel {
  protected:
    using StepPanel::StepPanel;
    void SetUp() override { ASSERT_TRUE(Open()); }
};

}  // namespace zps::tests
