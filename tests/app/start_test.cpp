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
#include <filesystem>
#include <string>

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
    EXPECT_EQ(std::tuple(source.CheckedAddr(), source.VoltScale(), source.CurrScale()),
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

// Menus, shortcuts and global menus press actions without asking the window.
TEST(StartUp, LetsNoCommandOfTheDisabledMainWindowChangeAnything) {
    ScriptedPanel panel;
    int pressed = 0;
    const auto pressAll = [&] {
        for (QAction* command : panel.Main().findChildren<QAction*>()) command->trigger();
        ++pressed;
    };
    panel.Line().Otherwise([&](const Bytes&) {  // a silent supply: in the wait for its answer,
        QMetaObject::invokeMethod(&panel.Main(), pressAll, Qt::QueuedConnection);
        return Bytes{};
    });
    panel.Run.StartUp();
    pressAll();  // and before it is asked
    const auto* const settings = panel.Run.Settings();
    const auto& result = settings->findChild<QLabel*>("lblZPS_ENQ");
    EXPECT_TRUE(WaitFor([&] { return result->text() == "통신에라 = 응답무!!!"; }));
    EXPECT_EQ(pressed, 5);
    EXPECT_EQ(panel.Line().WrittenData(), std::vector<Bytes>(4, Control(1, 5)));
    EXPECT_EQ(panel.Line().Waited(), 550ms);  // for answers and between attempts, nothing else
    EXPECT_EQ(panel.Run.Settings(), settings);
    EXPECT_EQ(panel.Line().OpenMaker(), 2);
    EXPECT_TRUE(settings->isVisible() && !panel.Main().isEnabled() && panel.Boxes.Shown.empty());
    for (QWidget* window : QApplication::topLevelWidgets())
        EXPECT_TRUE(window == settings || window == &panel.Main() || !window->isVisible());
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
    const auto closePortWindow = [] {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (dynamic_cast<PortWindow*>(window)) window->close();
    };
    std::ptrdiff_t most = 0;
    const EventWatch watch([&](const QObject& watched, const QEvent&) {
        const auto* widget = qobject_cast<const QWidget*>(&watched);
        if (widget != nullptr && widget->isWindow()) most = std::max(most, holders());
    });
    panel.Run.StartUp();
    // Settings, test, help and closing, with every order of three of them in it.
    for (const char command :
         std::string("SSSTSSHSSCSTTSTHSTCSHTSHHSHCSCTSCHSCCTTTHTTCTHHTHCTCHTCCHHHCHCCCSS")) {
        const char* const menu = command == 'S'   ? "mnuSET_MANU"
                                 : command == 'T' ? "mnuTEST"
                                                  : "mnuHELP";
        if (command == 'C')
            closePortWindow();
        else if (panel.Main().isEnabled())
            panel.Choose(menu);
        QApplication::processEvents();
        ASSERT_EQ(holders(), 1) << command;
    }
    EXPECT_EQ(most, 1);
    EXPECT_TRUE(panel.Boxes.Shown.empty());
    closePortWindow();
    panel.Choose("mnuSET_MANU");
    EXPECT_TRUE(panel.WaitForDataResult("통신ok = DATA수신!!!"));
    closePortWindow();
    EXPECT_TRUE(WaitFor([&] { return panel.Source().StepFlag(0); }));
}

}  // namespace
}  // namespace zps::tests
