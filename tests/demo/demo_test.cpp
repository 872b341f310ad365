#include "demo/marked_titles.h"
#include "demo/simulated_supply.h"
#include "demo/supply_menu.h"
#include "power/log/measurement_log.h"
#include "serial/asio_port.h"
#include "tests/support/panel.h"

#include <QMenuBar>
#include <QMessageBox>

#include <gtest/gtest.h>

#include <condition_variable>
#include <mutex>

namespace zps::tests {
namespace {

using demo::SimulatedSupply;

struct DemoParts {
    SimulatedSupply Supply;
    platform::QtEventLoop Loop;
    serial::AsioPortMaker Ports{Loop, Supply};
};

// The panel as zps-demo starts it, identified, with the settings window closed.
class DemoPanel : private DemoParts, public Panel {
  public:
    DemoPanel() : Panel(Ports, Loop) {
        Run.StartUp();
        demo::AddSupplyMenu(*Main().menuBar(), Supply.Line(), SimulatedSupply::Address);
        EXPECT_TRUE(WaitForDataResult(QStringLiteral("통신ok = DATA수신!!!")));
        Run.Settings()->close();
        EXPECT_TRUE(WaitFor([this] { return Source().StepFlag(0) && !Source().RxBusy(); }));
    }
    auto State() { return Supply.Line().StateOf(SimulatedSupply::Address); }
    auto Faults() { return Supply.Line().OrderedFaults(); }
    // Presses the command of the supply's menu that bears `text`.
    void Press(const QString& text) {
        for (QAction* command : Main().menuBar()->findChildren<QAction*>())
            if (command->text() == text) return command->trigger();
        ADD_FAILURE() << "no command " << text.toStdString();
    }
    void SwitchOn() {
        Click("cmdOUTPUT");
        EXPECT_TRUE(WaitFor([this] { return State().Output; }));
    }
};

TEST(Demo, DoesWhatItsMenuNames) {
    DemoPanel panel;
    panel.SwitchOn();
    panel.Press("설정 전압(O.V.P) 초과");
    EXPECT_TRUE(WaitFor([&] { return panel.Boxes.LastText() == "SET OVER VOLTAGE!!!"; }));
    EXPECT_FALSE(panel.State().Output);
    panel.Press("1 Ω");
    EXPECT_EQ(panel.State().Options.LoadOhms, 1);
    panel.Press("0.5초");
    EXPECT_EQ(panel.Faults().at(0).Amount, 500);
}

// A sample is due every 165 ms.
TEST(Demo, FallsSilentAndComesBack) {
    DemoPanel panel;
    panel.SwitchOn();
    const auto samplesWithin = [&](int milliseconds) {
        const auto& log = *panel.Main().findChild<MeasurementLog*>();
        QTest::qWait(600);  // an answer that is on its way
        const int before = log.RowCount();
        QTest::qWait(milliseconds);
        return log.RowCount() - before;
    };
    for (const char* quieting : {"응답 안 함(&N)", "케이블 뽑기(&U)"}) {
        panel.Press(quieting);
        EXPECT_EQ(samplesWithin(1200), 0) << quieting;
        panel.Press(quieting);
        EXPECT_GE(samplesWithin(2000), 3) << quieting;
    }
    EXPECT_TRUE(panel.State().Output && panel.Boxes.Shown.empty());
}

TEST(Demo, MarksEveryWindowAsSimulated) {
    const demo::MarkedTitles marks;
    DemoPanel panel;
    panel.Choose("mnuHELP");
    panel.Choose("mnuSET_MANU");
    QMessageBox box(&panel.Main());
    box.setWindowTitle("POWER END");
    box.show();
    int windows = 0;
    for (const QWidget* window : QApplication::topLevelWidgets()) {
        if (!window->isVisible()) continue;
        ++windows;
        EXPECT_TRUE(window->windowTitle().endsWith(" (모의)"))
            << window->windowTitle().toStdString();
    }
    EXPECT_EQ(windows, 4);
    EXPECT_EQ(panel.Main().windowTitle(), "ZPS-RS232 (모의)");
}

// 10 bits each at 9600 baud, there and back.
TEST(Demo, AnswersAsFastAsTheLineWould) {
    SimulatedSupply supply;
    std::mutex guard;
    std::condition_variable come;
    std::size_t arrived = 0;
    const auto device = supply.Open(supply.PathOf(1), [&](auto bytes) {
        const std::lock_guard lock(guard);
        arrived += bytes.size();
        come.notify_one();
    });
    EXPECT_THROW(supply.Open(supply.PathOf(1), {}), std::system_error);
    EXPECT_EQ(supply.PathOf(2), "");
    const auto frame = ControlFrame(SimulatedSupply::Address, code::Dle).Data;
    const auto began = std::chrono::steady_clock::now();
    device->Write(frame);
    std::unique_lock lock(guard);
    ASSERT_TRUE(come.wait_for(lock, 5s, [&] { return arrived > 10; }));
    const auto took = std::chrono::steady_clock::now() - began;
    EXPECT_GE(took, (frame.size() + arrived) * 1s / 960);
}

}  // namespace
}  // namespace zps::tests
