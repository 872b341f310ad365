// Every way in is a door: what was typed, or set from outside, is judged before anything else
// happens, and nothing gets past an entry in error or a window that takes nothing.
#include "controls/entry_field.h"
#include "power/log/measurement_log.h"
#include "tests/power/run_panel.h"

#include <QAccessible>
#include <QMenuBar>
#include <QScrollBar>

namespace zps::tests {
namespace {

class Doors : public ScriptedRun {
  protected:
    EntryField& Volt() { return Get<EntryField>("txPVOLT_0"); }
    // As Alt does, and a menu that was opened by key and left again.
    void GoByMenuBar() {
        Main().menuWidget()->setFocus(Qt::MenuBarFocusReason);
        EXPECT_FALSE(Volt().hasFocus());
    }
    static void SetFromOutside(QWidget& field, const QString& text) {
        QAccessible::queryAccessibleInterface(&field)->setText(QAccessible::Value, text);
    }
    // The toolkit holds such a button down for a moment before it clicks.
    static void PressFromOutside(QAbstractButton& button) {
        QAccessible::queryAccessibleInterface(&button)->actionInterface()->doAction(
            QAccessibleActionInterface::pressAction());
        ASSERT_TRUE(button.isDown());
        ASSERT_TRUE(WaitFor([&] { return !button.isDown(); }));
    }
    // What a person may do next, by whatever way, and what it sends.
    struct Way {
        std::function<void()> Do;
        const char* Sent;
    };
    std::vector<Way> Ways() {
        return {{[&] { Click("cmdOCP"); }, "X1"},
                {[&] { PressFromOutside(Get<QPushButton>("cmdOCP")); }, "X0"},
                {[&] { Choose("mnuData_Clear"); }, ""},
                {[&] { Click("txPSTEP_0"); }, ""},
                {[&] { Get<QWidget>("MSFlexGrid1").setFocus(); }, ""},
                {[&] { Get<QWidget>("txPCURR_0").setFocus(); }, ""},
                {[&] { Main().close(); }, ""},
                {[&] { Click("cmdOUTPUT"); }, "A1"}};
    }
};

TEST_F(Doors, AnEntryLeftByWayOfTheMenuBarIsCommittedBeforeAnythingElseIsDone) {
    int digit = 0;
    for (const auto& way : Ways()) {
        const std::string volts = "1." + std::to_string(++digit);
        Type("txPVOLT_0", QString::fromStdString(volts));
        GoByMenuBar();
        Sent();
        way.Do();
        EXPECT_EQ(Source().StepVolt(0), volts + "0");
        EXPECT_EQ(Sent(), std::string("V0") + way.Sent);
        ASSERT_TRUE(Quiet());
    }
}

TEST_F(Doors, AnEntryInErrorLeftByWayOfTheMenuBarLetsNothingHappen) {
    for (const bool outside : {false, true}) {
        for (const auto& way : Ways()) {
            SCOPED_TRACE(way.Sent);
            Boxes.Shown.clear();
            if (outside) {
                SetFromOutside(Volt(), "151");
                EXPECT_TRUE(Volt().hasFocus());
            } else {
                Type("txPVOLT_0", "151");
                GoByMenuBar();
            }
            way.Do();
            EXPECT_EQ(Boxes.Shown.size(), 1U);
            EXPECT_EQ(Boxes.LastTitle(), "VOLTAGE 설정 오류");
            EXPECT_TRUE(Volt().hasFocus());
            EXPECT_EQ(Sent(), "");
            QTest::keyClick(&Volt(), Qt::Key_Escape);
            EXPECT_EQ(Volt().text(), "0.00");
        }
    }
    Leave();
    EXPECT_EQ(Sent(), "");
}

TEST_F(Doors, TextFromOutsideIsAnEntryOnlyWhereAPersonCouldTypeIt) {
    SetFromOutside(Get<QWidget>("txtVOLT"), "150");
    EXPECT_EQ(Texts(*this, {"txtVOLT"}), "0.00");
    SetFromOutside(Volt(), "12");
    EXPECT_EQ(Sent(), "");
    SetFromOutside(Get<QWidget>("txPCURR_0"), "1");  // leaves the field before
    EXPECT_EQ(Sent(), "V4");
    ASSERT_TRUE(Quiet());
    Leave();
    EXPECT_EQ(Sent(), "C39");
    Boxes.WhileUp = [&](const Message&) { SetFromOutside(Volt(), "7"); };
    Choose("mnuData_Clear");
    Boxes.WhileUp = {};
    Boxes.Shown.clear();
    EXPECT_EQ(Volt().text(), "12.00");
    SetFromOutside(Get<QWidget>("txPVOLT_3"), "7");  // not the selected row
    EXPECT_EQ(Get<QLineEdit>("txPVOLT_3").text(), "0.00");
    Choose("mnuTEST");
    SetFromOutside(Volt(), "7");
    EXPECT_EQ(Volt().text(), "12.00");
    for (const char* menu : {"mnuSET_MANU", "mnuData_Clear", "mnuPROGRAM_END", "mnuHELP"}) {
        Choose(menu);
    }
    EXPECT_TRUE(Boxes.Shown.empty());
    EXPECT_EQ(ScriptedPanel::Run.Settings(), nullptr);
    EXPECT_EQ(Sent(), "");
}

TEST_F(Doors, AClickIntoAFieldSelectsItsWholeTextAndASecondOnePlacesTheCursor) {
    const auto at = [&](int x) { return QPoint(x, Volt().height() / 2); };
    QTest::mouseClick(&Volt(), Qt::LeftButton, {}, at(8));
    EXPECT_EQ(Volt().selectedText(), "0.00");
    QTest::mouseClick(&Volt(), Qt::LeftButton, {}, at(8));
    EXPECT_EQ(Volt().selectedText(), "");
    Leave();
    QTest::mouseDClick(&Volt(), Qt::LeftButton, {}, at(8));
    EXPECT_EQ(Volt().selectedText(), "0.00");
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
    Click("cmdOUTPUT");
    ASSERT_TRUE(Quiet());
    Sent();
    Click("cmdPREMOTE");
    EXPECT_FALSE(WaitFor([&] { return Line().Written().size() > 1; }, 600ms));
    EXPECT_EQ(Sent(), "r");
    EXPECT_EQ(Texts(*this, {"txtVOLT", "txtCURR"}), "---- ----");
    Source().ReadFrom(1, Line().Folder + "1");
    Main().ConnectionChanged();
    EXPECT_EQ(Texts(*this, {"txtVOLT", "txtCURR"}), "0.00 2.000");
}

}  // namespace
}  // namespace zps::tests
