#include "tests/support/panel.h"

#include <QLabel>
#include <QWindow>

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

TEST(StartUp, ShowsTheSettingsWindowAboveTheDisabledMainWindow) {
    ScriptedPanel panel;
    panel.Run.StartUp();
    EXPECT_EQ(panel.Line().OpenMaker(), 2);
    EXPECT_EQ(panel.Text("lblZPS_MODEL"), "unNAME");
    const auto& settings = *panel.Run.Settings();
    EXPECT_FALSE(panel.Main().isEnabled());
    EXPECT_TRUE(panel.Main().isVisible() && settings.isVisible() && settings.isEnabled());
    EXPECT_EQ(settings.windowHandle()->transientParent(), panel.Main().windowHandle());
    const SOURCE& source = panel.Source();
    EXPECT_EQ(std::tuple(source.CheckedAddr, source.VoltScale, source.CurrScale),
              std::tuple(99, 100, 10000));
    panel.Main().close();
    EXPECT_TRUE(panel.Main().isVisible());  // another window has its port
    EXPECT_TRUE(panel.Boxes.Shown.empty() && panel.Line().Written().empty());
}

TEST(StartUp, EndsWithThePortErrorOfTheMainWindow) {
    ScriptedPanel panel;
    panel.Line().Refuse(1, "Permission denied");
    EXPECT_THROW(panel.Run.StartUp(), serial::PortError);
    EXPECT_EQ(panel.Run.Settings(), nullptr);
}

TEST(TheDevice, IsHandedFromWindowToWindowAndOpenForNobodyElse) {
    SimulatedPanel panel;
    platform::QtEventLoop loop;
    const auto stranger = serial::AsioPortMaker(loop).MakePort();
    const auto expectClaimed = [&] {
        EXPECT_THROW(stranger->SetPortOpen(true), serial::PortError);
    };
    stranger->SetPortOpen(true);
    stranger->SetPortOpen(false);
    ASSERT_TRUE(panel.Open());
    expectClaimed();
    panel.Choose("mnuSET_MANU");
    expectClaimed();
    panel.Run.Settings()->close();
    expectClaimed();
    panel.Type("txPVOLT_0", "151");  // an entry in error keeps the window
    panel.Choose("mnuSET_MANU");
    EXPECT_EQ(panel.Run.Settings(), nullptr);
    EXPECT_EQ(panel.Boxes.Shown.size(), 1U);
}

TEST(TheDevice, MayGoAndComeBackUnderEitherWindow) {
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Identify());
    const auto plugAgain = [&] {
        panel.Line().Plug();
        panel.Link().Point(panel.Line().DeviceName());
    };
    const auto probed = [&](const QString& caption) {
        QTest::mouseClick(&panel.GetSetting<QPushButton>("cmdZPS_ENQ"), Qt::LeftButton);
        const auto& label = panel.GetSetting<QLabel>("lblZPS_ENQ");
        return WaitFor([&] { return label.text() == caption; });
    };
    panel.Line().Unplug();
    EXPECT_TRUE(probed("통신에라 = 응답무!!!"));
    plugAgain();
    EXPECT_TRUE(probed("통신ok = ACK수신!!!"));
    panel.Run.Settings()->close();
    ASSERT_TRUE(WaitFor([&] { return panel.Source().StepFlag[0] && !panel.Source().RxBusy; }));
    panel.Click("cmdOUTPUT");
    ASSERT_TRUE(WaitFor([&] { return panel.Source().RxResult == Reply::Data; }));
    panel.Line().Unplug();
    panel.Source().RxFrame.clear();
    EXPECT_FALSE(WaitFor([&] { return !panel.Source().RxFrame.empty(); }, 400ms));
    plugAgain();
    EXPECT_TRUE(WaitFor([&] { return panel.Source().RxFrame.size() == 14; }));
    EXPECT_TRUE(panel.Boxes.Shown.empty());
}

}  // namespace
}  // namespace zps::tests
