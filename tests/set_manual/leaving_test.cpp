#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

TEST(Leaving, OpensThePanelOnlyAfterAGoodResultAndTheMenuAlwaysLeadsBack) {
    struct Answers {
        Reply Result;
        Bytes ToAll, ToDle;
    } const answers[]{{Reply::None, {}, {}},
                      {Reply::Nak, Nak, {}},
                      {Reply::BadAck, {9}, {}},
                      {Reply::BadData, Ack, {9}},
                      {Reply::Data, Ack, RatingsReply(1500, 100)}};
    ScriptedPanel panel;
    const Answers* given = answers;
    panel.Line().Otherwise(
        [&](const Bytes& block) { return block == Dle(1) ? given->ToDle : given->ToAll; });
    panel.Run.StartUp();
    for (const auto& next : answers) {
        SCOPED_TRACE(static_cast<int>(next.Result));
        given = &next;
        const bool good = next.Result == Reply::Data;
        auto& label = panel.GetSetting<QLabel>(next.ToDle.empty() ? "lblZPS_ENQ" : "lblZPS_DLE");
        label.clear();
        ASSERT_TRUE(WaitFor([&] { return !label.text().isEmpty(); }));
        EXPECT_EQ(panel.Source().RxResult, next.Result);
        panel.Run.Settings()->close();
        EXPECT_TRUE(panel.Main().isEnabled());
        for (const char* frame : {"frmPOWERDISPLAY", "fraDATA"}) {
            EXPECT_EQ(panel.Get<QFrame>(frame).isVisible(), good) << frame;
            EXPECT_EQ(panel.Get<QFrame>(frame).isEnabled(), good) << frame;
        }
        EXPECT_EQ(StaysQuiet(panel.Line()), !good);  // the top step goes out by itself
        ASSERT_TRUE(panel.Get<QAction>("mnuSET_MANU").isEnabled());
        panel.Choose("mnuSET_MANU");
        ASSERT_NE(panel.Run.Settings(), nullptr);
    }
    EXPECT_TRUE(panel.Boxes.Shown.empty());
}

TEST(Leaving, ComesBeforeAProbeWhoseTimerHasJustTicked) {
    ScriptedPanel panel;
    panel.Run.StartUp();
    const EventWatch watch([&](QObject& watched, const QEvent& event) {
        const auto* timer = qobject_cast<QTimer*>(&watched);
        if (event.type() != QEvent::Timer || timer == nullptr || timer->interval() != 200) return;
        QMetaObject::invokeMethod(panel.Run.Settings(), &QWidget::close, Qt::QueuedConnection);
    });
    ASSERT_TRUE(WaitFor([&] { return panel.Main().isEnabled(); }));
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    EXPECT_TRUE(panel.Line().Written().empty());
}

TEST(APortThatCantBeOpened, IsReportedOnceAndNothingIsSentToIt) {
    ScriptedPanel panel;
    panel.Line().Refuse(2, "No such device");
    panel.Run.StartUp();
    std::size_t boxes = 0;
    const auto oneBoxAndSilence = [&] {
        return StaysQuiet(panel.Line()) && panel.Boxes.Shown.size() == ++boxes;
    };
    Press(panel, "optPORT_2");
    EXPECT_TRUE(oneBoxAndSilence());
    EXPECT_EQ(panel.Boxes.Shown[0].Icon, MessageIcon::Critical);
    EXPECT_TRUE(panel.Boxes.LastText().contains("COM2"));
    EXPECT_TRUE(panel.Boxes.LastText().contains("No such device"));
    Pick(panel, "cmbADDR", 0);   // starts nothing on a closed port,
    Press(panel, "cmdZPS_ENQ");  // and a probe by hand says so
    EXPECT_TRUE(oneBoxAndSilence());
    // The main window can't have it either; it is there all the same, with the way back.
    panel.Run.Settings()->close();
    EXPECT_TRUE(oneBoxAndSilence());
    EXPECT_TRUE(panel.Main().isVisible() && panel.Main().isEnabled());
    panel.Choose("mnuSET_MANU");
    EXPECT_TRUE(oneBoxAndSilence());  // at load
    EXPECT_TRUE(panel.Line().Written().empty());
    panel.Line().Otherwise(GoodSupply);
    Press(panel, "optPORT_1");
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    // Lost to the main window alone, it counts as a probe that failed.
    panel.Line().Refuse(1, "Device or resource busy");
    panel.Run.Settings()->close();
    EXPECT_TRUE(oneBoxAndSilence());
    EXPECT_TRUE(panel.Main().isEnabled());
    EXPECT_FALSE(panel.Get<QFrame>("frmPOWERDISPLAY").isVisible());
}

}  // namespace
}  // namespace zps::tests
