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

void ExpectLocal(SimulatedPanel& panel) {
    std::vector<Bytes> last;
    ASSERT_TRUE(WaitFor([&] { return !(last = panel.Frames()).empty(); }));
    EXPECT_EQ(last, (std::vector<Bytes>{{1, 17, 18}}));
}

void ExpectEndQuestion(const ScriptedBoxes& boxes, std::size_t asked, MessageIcon icon) {
    ASSERT_EQ(boxes.Shown.size(), asked);
    EXPECT_EQ(boxes.Shown.back().Icon, icon);
    EXPECT_EQ(boxes.LastText(), "프로그램을 종료합니다.");
}

TEST(ClosingTheMainWindow, AsksOnceAndReturnsTheSupplyToLocal) {
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Open());
    panel.Choose("mnuHELP");
    panel.Click("cmdOUTPUT");
    ASSERT_TRUE(panel.Settle());
    panel.Frames();
    EXPECT_FALSE(panel.Main().close());
    ExpectEndQuestion(panel.Boxes, 1, MessageIcon::Question);
    EXPECT_TRUE(panel.Main().isVisible() && panel.Main().isEnabled() && About());
    EXPECT_TRUE(panel.Frames().empty());
    EXPECT_TRUE(Polled(panel));
    panel.Boxes.Answers = {Answer::Yes};
    EXPECT_TRUE(panel.Main().close());
    ExpectEndQuestion(panel.Boxes, 2, MessageIcon::Question);
    EXPECT_EQ(About(), nullptr);
    ExpectLocal(panel);
    EXPECT_FALSE(Polled(panel));
}

TEST(TheEndOfTheMenu, AsksOnceAndEndsTheProgram) {
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Open());
    panel.Click("cmdOUTPUT");
    ASSERT_TRUE(panel.Settle());
    panel.Choose("mnuPROGRAM_END");
    ExpectEndQuestion(panel.Boxes, 1, MessageIcon::Information);
    EXPECT_FALSE(Polled(panel));
    panel.Frames();
    panel.Boxes.Answers = {Answer::Yes};
    QTimer::singleShot(0, [&] { panel.Choose("mnuPROGRAM_END"); });
    QTimer::singleShot(5s, [] { QApplication::exit(9); });
    EXPECT_EQ(QApplication::exec(), 0);
    ExpectEndQuestion(panel.Boxes, 2, MessageIcon::Information);
    ExpectLocal(panel);
}

}  // namespace
}  // namespace zps::tests
