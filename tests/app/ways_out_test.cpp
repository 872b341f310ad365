#include "tests/support/panel.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

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
    const auto expectAsked = [&](std::size_t times) {
        ASSERT_EQ(panel.Boxes.Shown.size(), times);
        EXPECT_EQ(panel.Boxes.Shown.back().Icon,
                  byMenu ? MessageIcon::Information : MessageIcon::Question);
        EXPECT_EQ(panel.Boxes.LastText(), "프로그램을 종료합니다.");
    };
    leave();
    expectAsked(1);
    EXPECT_TRUE(panel.Main().isVisible() && panel.Main().isEnabled() && About());
    EXPECT_TRUE(panel.Frames().empty());
    EXPECT_EQ(Polled(panel), !byMenu);
    panel.Boxes.Answers = {Answer::Yes};
    if (byMenu) {
        QTimer::singleShot(0, leave);
        QTimer::singleShot(5s, [] { QApplication::exit(9); });
        EXPECT_EQ(QApplication::exec(), 0);
    } else {
        leave();
        EXPECT_FALSE(panel.Main().isVisible() || About());
    }
    expectAsked(2);
    std::vector<Bytes> last;
    ASSERT_TRUE(WaitFor([&] { return !(last = panel.Frames()).empty(); }));
    EXPECT_EQ(last, (std::vector<Bytes>{{1, 17, 18}}));
    EXPECT_TRUE(byMenu || !Polled(panel));
}

INSTANTIATE_TEST_SUITE_P(By, WayOut, testing::Values("Menu", "Window"));

}  // namespace
}  // namespace zps::tests
