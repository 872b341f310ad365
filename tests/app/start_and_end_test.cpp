#include "controls/error_texts.h"
#include "tests/support/panel.h"

#include <QAccessible>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QRegularExpression>
#include <QScrollBar>
#include <QWindow>

#include <gtest/gtest.h>

#include <string>

namespace zps::tests {
namespace {

TEST(StartUp, ShowsTheSettingsWindowAboveTheDisabledMainWindow) {
    ScriptedPanel panel;
    panel.Run.StartUp();
    EXPECT_EQ(panel.Line().OpenMaker(), 2);
    const auto& settings = *panel.Run.Settings();
    EXPECT_FALSE(panel.Main().isEnabled());
    EXPECT_TRUE(panel.Main().isVisible() && settings.isVisible() && settings.isEnabled());
    EXPECT_EQ(settings.windowHandle()->transientParent(), panel.Main().windowHandle());
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
    try {
        panel.Run.StartUp();
        FAIL();
    } catch (const serial::PortError& error) {
        const Message message = StartMessageOf(error);
        EXPECT_TRUE(message.Title.startsWith("ZPS-RS232") && message.Text.contains("끝냅니다"));
    }
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
    EXPECT_EQ(panel.Line().OpenMaker(), 2);
    for (QWidget* window : QApplication::topLevelWidgets())
        EXPECT_EQ(window->isVisible(), window == settings || window == &panel.Main());
    EXPECT_TRUE(!panel.Main().isEnabled() && panel.Boxes.Shown.empty());
}

TEST(StartUp, KeepsItsFaceAlsoWhereTheDesktopTellsItsOwnLate) {
    const QString own = QApplication::font().family();
    const auto tell = [] { QApplication::setFont(QFont("DejaVu Serif")); };
    QMetaObject::invokeMethod(qApp, tell, Qt::QueuedConnection);
    DressApplication();
    QCoreApplication::processEvents();
    EXPECT_EQ(QApplication::font().family(), own);
}

TEST(StartUp, LeavesNoTextOfTheToolkitInEnglish) {
    QLineEdit field("text");
    QStringList texts{QScrollBar::tr("Scroll here"), QAccessibleActionInterface::tr("Press")};
    for (const QAction* action : field.createStandardContextMenu()->actions())
        if (!action->isSeparator()) texts << action->text();
    for (const auto& text : texts)
        EXPECT_TRUE(text.contains(QRegularExpression("[가-힣]"))) << text.toStdString();
}

TEST(TheDevice, HasOneHolderInWhateverOrderTheWindowsOpenAndClose) {
    ScriptedPanel panel;  // on whose line a second holder is refused
    panel.Run.StartUp();
    // Settings, test, help and closing, with every order of three of them in it.
    for (const char command :
         std::string("SSSTSSHSSCSTTSTHSTCSHTSHHSHCSCTSCHSCCTTTHTTCTHHTHCTCHTCCHHHCHCCCSS")) {
        for (QWidget* window : QApplication::topLevelWidgets())
            if (command == 'C' && dynamic_cast<PortWindow*>(window)) window->close();
        if (command == 'S') panel.Choose("mnuSET_MANU");
        if (command == 'T') panel.Choose("mnuTEST");
        if (command == 'H') panel.Choose("mnuHELP");
        QApplication::processEvents();
        ASSERT_GT(panel.Line().OpenMaker(), 0) << command;
    }
    EXPECT_TRUE(panel.Boxes.Shown.empty());
}

QWidget* About() {
    for (QWidget* window : QApplication::topLevelWidgets())
        if (window->objectName() == "frmAbout" && window->isVisible()) return window;
    return nullptr;
}

bool Polled(SimulatedPanel& panel) {
    panel.Line().TakeReceived();
    return WaitFor([&] { return !panel.Line().TakeReceived().empty(); }, 500ms);
}

class WayOut : public testing::TestWithParam<const char*> {};

TEST_P(WayOut, AsksOnceAndReturnsTheSupplyToLocal) {
    const bool byMenu = GetParam() == std::string("Menu");
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Open());
    panel.Choose("mnuHELP");
    panel.Click("cmdOUTPUT");
    ASSERT_TRUE(panel.Settle());
    panel.Frames();
    const auto leave = [&] {
        byMenu ? panel.Choose("mnuPROGRAM_END") : void(panel.Main().close());
    };
    leave();
    ASSERT_EQ(panel.Boxes.Shown.size(), 1U);
    EXPECT_EQ(panel.Boxes.Shown[0].Icon, byMenu ? MessageIcon::Information : MessageIcon::Question);
    EXPECT_EQ(panel.Boxes.LastText(), "프로그램을 종료합니다.");
    EXPECT_TRUE(panel.Main().isVisible() && panel.Main().isEnabled() && About());
    EXPECT_TRUE(panel.Frames().empty());
    EXPECT_EQ(Polled(panel), !byMenu);
    panel.Boxes.Answers = {Answer::Yes};
    if (byMenu) {
        QTimer::singleShot(0, leave);
        EXPECT_EQ(QApplication::exec(), 0);
    } else {
        leave();
        EXPECT_FALSE(panel.Main().isVisible() || About());
    }
    EXPECT_EQ(panel.Boxes.Shown.size(), 2U);
    std::vector<Bytes> last;
    ASSERT_TRUE(WaitFor([&] { return !(last = panel.Frames()).empty(); }));
    EXPECT_EQ(last, (std::vector<Bytes>{{1, 17, 18}}));
    EXPECT_TRUE(byMenu || !Polled(panel));
}

INSTANTIATE_TEST_SUITE_P(By, WayOut, testing::Values("Menu", "Window"));

}  // namespace
}  // namespace zps::tests
