#include "tests/support/panel.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QScrollBar>
#include <QWindow>

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <filesystem>
#include <functional>

namespace zps::tests {
namespace {

namespace fs = std::filesystem;

TEST(StartUp, ShowsTheSettingsWindowAboveTheDisabledMainWindow) {
    ScriptedPanel panel;
    panel.Run.StartUp();
    EXPECT_EQ(panel.Line().OpenMaker(), 2);
    EXPECT_EQ(panel.Text("lblZPS_MODEL"), "unNAME");
    const auto& settings = *panel.Run.Settings();
    EXPECT_FALSE(panel.Main().isEnabled());
    EXPECT_TRUE(panel.Main().isVisible() && settings.isVisible() && settings.isEnabled());
    EXPECT_EQ(settings.windowHandle()->transientParent(), panel.Main().windowHandle());
    auto* spoken = QAccessible::queryAccessibleInterface(panel.Run.Settings());
    EXPECT_EQ(spoken->role(), QAccessible::Dialog);
    const SOURCE& source = panel.Source();
    EXPECT_EQ(std::tuple(source.CheckedAddr, source.VoltScale, source.CurrScale),
              std::tuple(99, 100, 10000));
    panel.Main().close();
    EXPECT_TRUE(panel.Main().isVisible());  // another window has its port
    EXPECT_TRUE(panel.Boxes.Shown.empty() && panel.Line().Written().empty());
}

TEST(StartUp, EndsWithThePortErrorOfTheMainWindow) {
    ScriptedPanel panel;
    panel.Line().Refuse(1, std::errc::permission_denied);
    EXPECT_THROW(panel.Run.StartUp(), serial::PortError);
    EXPECT_EQ(panel.Run.Settings(), nullptr);
}

TEST(StartUp, LeavesNoTextOfTheToolkitInEnglish) {
    QLineEdit field("text");
    QStringList texts{QScrollBar::tr("Scroll here"), QAccessibleActionInterface::tr("Press")};
    for (const QAction* action : field.createStandardContextMenu()->actions())
        if (!action->isSeparator()) texts << action->text();
    for (const auto& text : texts)
        EXPECT_TRUE(text.contains(QRegularExpression("[가-힣]"))) << text.toStdString();
}

// How often this process has a device open, as the system counts.
std::ptrdiff_t Handles(const std::string& device) {
    std::error_code gone;
    return std::ranges::count_if(fs::directory_iterator("/proc/self/fd"), [&](const auto& entry) {
        return fs::read_symlink(entry.path(), gone) == device;
    });
}

TEST(TheDevice, HasOneHolderInWhateverOrderTheWindowsOpenAndClose) {
    SimulatedPanel panel;
    const std::string device = panel.Line().DeviceName();
    const auto without = Handles(device);  // the simulated line's own
    const auto holders = [&] { return Handles(device) - without; };
    const auto choose = [&](const char* menu) {
        if (panel.Main().isEnabled()) panel.Choose(menu);
    };
    const auto closePortWindow = [&] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (dynamic_cast<PortWindow*>(window)) window->close();
    };
    const std::array<std::function<void()>, 4> commands{
        [&] { choose("mnuSET_MANU"); }, [&] { choose("mnuTEST"); }, [&] { choose("mnuHELP"); },
        closePortWindow};
    std::ptrdiff_t most = 0;
    const EventWatch watch(
        [&](const QObject&, const QEvent&) { most = std::max(most, holders()); });
    panel.Run.StartUp();
    for (std::size_t order = 0; order < 64; ++order) {
        for (const auto command : {order / 16, order / 4 % 4, order % 4}) {
            commands.at(command)();
            QApplication::processEvents();
            ASSERT_EQ(holders(), 1) << order << ' ' << command;
        }
    }
    EXPECT_EQ(most, 1);
    EXPECT_TRUE(panel.Boxes.Shown.empty());
    closePortWindow();
    panel.Choose("mnuSET_MANU");
    EXPECT_TRUE(panel.WaitForDataResult("통신ok = DATA수신!!!"));
    closePortWindow();
    EXPECT_TRUE(WaitFor([&] { return panel.Source().StepFlag[0]; }));
}

TEST(TheDevice, MayGoAndComeBackUnderTheSettingsWindow) {
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Identify());
    const auto probed = [&](const QString& caption) {
        QTest::mouseClick(&panel.GetSetting<QPushButton>("cmdZPS_ENQ"), Qt::LeftButton);
        const auto& label = panel.GetSetting<QLabel>("lblZPS_ENQ");
        return WaitFor([&] { return label.text() == caption; });
    };
    panel.Line().Unplug();
    EXPECT_TRUE(probed("통신에라 = 응답무!!!"));
    panel.Line().Plug();
    panel.Link().Point(panel.Line().DeviceName());
    EXPECT_TRUE(probed("통신ok = ACK수신!!!"));
    EXPECT_TRUE(panel.Boxes.Shown.empty());
}

}  // namespace
}  // namespace zps::tests
