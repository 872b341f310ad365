#include "tests/support/panel.h"

#include <QLabel>
#include <QWindow>

#include <gtest/gtest.h>

#include <filesystem>

namespace zps::tests {
namespace {

TEST(StartUp, ShowsTheMainWindowOnItsPortAndThenTheSettingsWindowAboveIt) {
    ScriptedPanel panel;
    QStringList seen;
    const EventWatch watch([&](QObject& watched, const QEvent& event) {
        const QString name = watched.objectName();
        const bool shown = event.type() == QEvent::Show;
        if ((name != "POWER" && name != "SET_MANUAL") ||
            (!shown && event.type() != QEvent::EnabledChange))
            return;
        seen << QStringLiteral("%1 %2 on port %3, %4")
                    .arg(name, shown ? "shown" : "switched")
                    .arg(panel.Line().OpenMaker())
                    .arg(panel.Text("lblZPS_MODEL"));
    });
    panel.Run.StartUp();
    EXPECT_EQ(seen,
              (QStringList{"POWER shown on port 1, ZPS_150", "POWER switched on port 0, ZPS_150",
                           "SET_MANUAL shown on port 2, unNAME"}));
    const auto& settings = *panel.Run.Settings();
    EXPECT_FALSE(panel.Main().isEnabled());
    EXPECT_TRUE(panel.Main().isVisible() && settings.isVisible() && settings.isEnabled());
    EXPECT_EQ(settings.windowHandle()->transientParent(), panel.Main().windowHandle());
    const SOURCE& source = panel.Source();
    EXPECT_EQ(source.CheckedAddr, 99);
    EXPECT_EQ(source.PowerAddr, 1);
    EXPECT_EQ(source.VoltScale + source.CurrScale, 10100);
    EXPECT_TRUE(source.MenuDialogFlag);
    panel.Main().close();
    EXPECT_TRUE(panel.Main().isVisible());  // another window has its port
    EXPECT_TRUE(panel.Boxes.Shown.empty() && panel.Line().Written().empty());
}

TEST(StartUp, EndsWithThePortErrorOfTheMainWindow) {
    ScriptedPanel panel;
    panel.Line().Refuse(1, "Permission denied");
    try {
        panel.Run.StartUp();
        FAIL();
    } catch (const serial::PortError& error) {
        EXPECT_EQ(error.CommPort, 1);
        EXPECT_STREQ(error.what(), "Permission denied");
    }
    EXPECT_EQ(panel.Run.Settings(), nullptr);
}

TEST(TheDevice, IsOpenInOneWindowAtATimeAndForNobodyElse) {
    SimulatedPanel panel;
    platform::QtEventLoop loop;
    const auto stranger = serial::AsioPortMaker(loop).MakePort();
    const auto handles = [&] {
        int open = 0;
        std::error_code gone;
        for (const auto& handle : std::filesystem::directory_iterator("/proc/self/fd"))
            open += std::filesystem::read_symlink(handle, gone) == panel.Line().DeviceName();
        return open;
    };
    const int own = handles();  // the line's
    const auto claimed = [&] {
        EXPECT_EQ(handles(), own + 1);
        EXPECT_THROW(stranger->SetPortOpen(true), serial::PortError);
    };
    stranger->SetPortOpen(true);
    stranger->SetPortOpen(false);
    ASSERT_TRUE(panel.Open());
    claimed();
    panel.Choose("mnuSET_MANU");
    claimed();
    panel.Run.Settings()->close();
    claimed();
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
