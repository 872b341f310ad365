// Every way in is a door: what was typed, or set from outside, is judged before anything else
// happens, and nothing gets past an entry in error or a window that takes nothing.
#include "controls/entry_field.h"
#include "power/log/measurement_log.h"
#include "tests/power/run_panel.h"

#include <QAccessible>
#include <QMenuBar>

namespace zps::tests {
namespace {

class Doors : public ScriptedRun {
  protected:
    EntryField& Volt() { return Get<EntryField>("txPVOLT_0"); }
    void TypeAndGoByMenuBar(const char* text) {
        Type("txPVOLT_0", text);
        QTest::keyClick(&Volt(), std::exchange(ByAlt, !ByAlt) ? Qt::Key_Alt : Qt::Key_F10);
        EXPECT_TRUE(Main().menuWidget()->hasFocus());
        EXPECT_NE(Main().menuBar()->activeAction(), nullptr);
    }
    bool ByAlt = true;
    static void SetFromOutside(QWidget& field, const QString& text) {
        QAccessible::queryAccessibleInterface(&field)->setText(QAccessible::Value, text);
    }
};

TEST_F(Doors, AnEntryIsJudgedBeforeWhateverIsDoneBehindTheMenuBarWhichAnErrorStops) {
    const std::pair<std::function<void()>, const char*> ways[]{
        {[&] { Click("cmdOCP"); }, "X1"},
        {[&] { EXPECT_TRUE(PressFromOutside(Get<QPushButton>("cmdOCP"))); }, "X0"},
        {[&] { Choose("mnuData_Clear"); }, ""},
        {[&] { Click("txPSTEP_0"); }, ""},
        {[&] { Get<QWidget>("MSFlexGrid1").setFocus(); }, ""},
        {[&] { Get<QWidget>("txPCURR_0").setFocus(); }, ""},
        {[&] { Main().close(); }, ""},
        {[&] { Click("cmdOUTPUT"); }, "A1"}};
    std::string volts = "0.00";
    for (const auto& [act, sent] : ways) {
        SCOPED_TRACE(volts + sent);
        for (const bool outside : {false, true}) {
            Boxes.Shown.clear();
            outside ? SetFromOutside(Volt(), "151") : TypeAndGoByMenuBar("151");
            act();
            EXPECT_EQ(Boxes.Shown.size(), 1U);
            EXPECT_EQ(Boxes.LastTitle(), "VOLTAGE 설정 오류");
            EXPECT_TRUE(Volt().hasFocus());
            EXPECT_EQ(Sent(), "");
            QTest::keyClick(&Volt(), Qt::Key_Escape);
            EXPECT_EQ(Volt().text().toStdString(), volts);
        }
        ++volts[3];
        TypeAndGoByMenuBar(volts.c_str());
        act();
        EXPECT_EQ(Source().StepVolt(0), volts);
        EXPECT_EQ(Sent(), std::string("V0") + sent);
        ASSERT_TRUE(Settle());
    }
}

TEST_F(Doors, TextFromOutsideIsAnEntryOnlyWhereAPersonCouldTypeIt) {
    SetFromOutside(Get<QWidget>("txtVOLT"), "150");
    EXPECT_EQ(Texts(*this, {"txtVOLT"}), "0.00");
    SetFromOutside(Volt(), "12");
    EXPECT_EQ(Sent(), "");
    SetFromOutside(Get<QWidget>("txPCURR_0"), "1");  // leaves the field before
    EXPECT_EQ(Sent(), "V4");
    ASSERT_TRUE(Settle());
    Leave();
    EXPECT_EQ(Sent(), "C39");
    Boxes.WhileUp = [&](const Message&) { SetFromOutside(Volt(), "7"); };
    Choose("mnuData_Clear");
    Boxes.WhileUp = {};
    SetFromOutside(Get<QWidget>("txPVOLT_3"), "7");  // not the selected row
    EXPECT_EQ(Get<QLineEdit>("txPVOLT_3").text(), "0.00");
    Choose("mnuTEST");
    SetFromOutside(Volt(), "7");
    EXPECT_EQ(Volt().text(), "12.00");
    EXPECT_EQ(Sent(), "");
}

TEST_F(Doors, AClickIntoAFieldSelectsItsWholeTextAndASecondOnePlacesTheCursor) {
    const QPoint place(8, Volt().height() / 2);
    for (const char* selected : {"0.00", ""}) {
        QTest::mouseClick(&Volt(), Qt::LeftButton, {}, place);
        EXPECT_EQ(Volt().selectedText(), selected);
    }
    Leave();
    QTest::mouseDClick(&Volt(), Qt::LeftButton, {}, place);
    QTest::keyClicks(&Volt(), "12");
    EXPECT_EQ(Volt().text(), "12");
}

TEST_F(Doors, ASupplyOfUnknownRatingsIsShownNoNumberAndGetsNone) {
    ASSERT_TRUE(SwitchOn());
    EXPECT_EQ(Texts(*this, {"txtVOLT", "txtCURR"}), "12.100 0.1000");
    const auto rows = [&] { return Main().findChild<MeasurementLog*>()->RowCount(); };
    Source().Forget();
    Main().ConnectionChanged();
    const int before = rows();
    ASSERT_TRUE(Handled(Reading(4)));
    EXPECT_EQ(Texts(*this, {"txtVOLT", "txtCURR"}), "---- ----");
    EXPECT_EQ(rows(), before);
    ASSERT_TRUE(Press("cmdOUTPUT"));
    Sent();
    for (const bool entry : {true, false}) {
        entry ? Enter("txPTIME_0", "1") : Click("txPSTEP_1");
        EXPECT_TRUE(Boxes.LastText().contains("설정 > ZPS설정 > DATA 확인"));
        EXPECT_EQ(std::exchange(Boxes.Shown, {}).size(), 1U);
    }
    EXPECT_EQ(Texts(*this, {"txPTIME_0", "txtSTEP"}), "0.00000 03");
    Click("cmdPREMOTE");
    EXPECT_FALSE(AreSent(2, 600ms));
    EXPECT_EQ(Sent(), "r");
    EXPECT_EQ(Texts(*this, {"txtVOLT", "txtCURR"}), "---- ----");
    Source().ReadFrom(1, Line().Folder + "1");
    Main().ConnectionChanged();
    EXPECT_EQ(Texts(*this, {"txtVOLT", "txtCURR"}), "0.00 2.000");
}

}  // namespace
}  // namespace zps::tests
