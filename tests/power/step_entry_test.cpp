// Typing into the fields of a step: what is accepted, shown, stored and sent.
#include "tests/power/step_panel.h"

#include <algorithm>
#include <array>

namespace zps::tests {
namespace {

struct FieldCase {
    const char* Field;
    StepValue Stored;
    const char* Title;
    const char* FirstLine;
    const char* Range;
    const char* Refused;  // texts apart by "|"
    const char* Good;     // typed>shown
    Bytes Sent;           // for the first good one
};
const FieldCase Fields[]{
    {"txPVOLT_0",
     StepValue::Volt,
     "VOLTAGE",
     "VOLTAGE",
     "0~150V",
     "151|150.00002|-0.1|1e99|-1e99",
     "1 2.5 V>12.50|150>150.0|150.000001>150.0|>0.00|19.994>19.99|1e2x>100.0|abc>0.00|-0>0.00",
     {27, 'V', 4, 0xE2, 0, 0}},
    {"txPCURR_0",
     StepValue::Curr,
     "CURRENT",
     "CURRENT",
     "0~10A",
     "10.001|12e|-1|1e99",
     "1.5>1.500|10>10.00|1.9999>2.000|>0.000|2>2.00",
     {27, 'C', 5, 0xDC, 0, 0}},
    {"txPTIME_0",
     StepValue::Time,
     "TIME",
     "TIME",
     "0~50000sec",
     "50000.001|0.0005|0.00099|-1|1e99",
     "12.5>12.50000|50000>50000.00000|0.001>0.00100|>0.00000|x>0.00000",
     {27, 'T', 0, 12, 1, 0xF4, 0}},
    {"txPSLOPE_0",
     StepValue::Slope,
     "SLOPE",
     "SLOPE",
     "0~50sec",
     "50.00001|0.0005|0.00099|-1|1e99",
     "1.23456>1.23456|50>50.00000|0.001>0.00100|>0.00000|x>0.00000",
     {27, 'D', 4, 0xD2, 56}},
    {"txPOVP_0",
     StepValue::Ovp,
     "OVP",
     "O.V.P",
     "0~163.5V",
     "163.6|-1|1e99",
     "120>120.0|>0.00|163.5>163.5|163.500001>163.5|q>0.00",
     {27, 'O', 0x2E, 0xE0}},
};

class StepEntry : public StepTest {};

TEST_F(StepEntry, OutOfRangeGivesOneMessageAndTheFocusBackEachTimeTheFieldIsLeft) {
    for (const auto& one : Fields) {
        auto& field = Get<QLineEdit>(one.Field);
        const std::string before = Source().Text(one.Stored, 0);
        for (const QString& text : QString(one.Refused).split('|')) {
            SCOPED_TRACE(std::string(one.Field) + " " + text.toStdString());
            Type(one.Field, text);
            for (int time = 0; time < 2; ++time) {
                Boxes.Shown.clear();
                Leave();
                ASSERT_TRUE(WaitFor([&] { return field.hasFocus(); }));
                ASSERT_EQ(Boxes.Shown.size(), 1U);
                EXPECT_EQ(Boxes.LastTitle(), QString(one.Title) + " 설정 오류");
                EXPECT_EQ(Boxes.LastText(), QString("%1 SETTING값 범위 초과\r\n설정값 범위=%2")
                                                .arg(one.FirstLine, one.Range));
                EXPECT_EQ(Boxes.Shown.back().Icon, MessageIcon::Information);
                EXPECT_EQ(PointerAtBox, nullptr);
                EXPECT_EQ(field.selectedText(), text);
                EXPECT_TRUE(Locked());
            }
            EXPECT_EQ(Source().Text(one.Stored, 0), before);
            QTest::keyClick(&field, Qt::Key_Escape);
            EXPECT_EQ(field.text().toStdString(), before);
            EXPECT_TRUE(Released());
            Leave();
            EXPECT_EQ(Boxes.Shown.size(), 1U);
        }
    }
    EXPECT_TRUE(Sent().empty());
}

TEST_F(StepEntry, InRangeIsReformattedAndStoredAsDisplayed) {
    for (const auto& one : Fields) {
        const QStringList pairs = QString(one.Good).split('|');
        for (const QString& pair : pairs) {
            SCOPED_TRACE(std::string(one.Field) + " " + pair.toStdString());
            const QString shown = pair.section('>', 1);
            Enter(one.Field, pair.section('>', 0, 0));
            EXPECT_EQ(Get<QLineEdit>(one.Field).text(), shown);
            EXPECT_EQ(Source().Text(one.Stored, 0), shown.toStdString());
            EXPECT_TRUE(Released());
            const auto sent = Sent();
            EXPECT_EQ(sent.size(), 1U);
            EXPECT_TRUE(pair != pairs.front() || sent == Only(one.Sent));
        }
    }
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(StepEntry, OnlySetPointsAreShownAtOnceAndStopThePoll) {
    ASSERT_TRUE(SwitchOutput(true));
    for (const auto& [name, readOut] : {std::pair{"txPVOLT_0", "txtVOLT"},
                                        {"txPCURR_0", "txtCURR"},
                                        {"txPTIME_0", ""},
                                        {"txPSLOPE_0", ""},
                                        {"txPOVP_0", ""}}) {
        SCOPED_TRACE(name);
        const bool setPoint = *readOut != 0;
        Source().RxFrame.clear();
        ASSERT_TRUE(WaitFor([&] { return !Source().RxFrame.empty(); }));
        auto& field = Get<QLineEdit>(name);
        field.setEnabled(true);
        Type(name, "1.5");
        Line().SetFaults({.Silent = true});
        Leave();
        EXPECT_TRUE(!setPoint || Get<QLineEdit>(readOut).text() == field.text());
        const auto polled = [&] { return Source().TxFrame.size() == 3; };
        EXPECT_EQ(WaitFor(polled, setPoint ? 400ms : 5000ms), !setPoint);
        Line().SetFaults({});
    }
}

TEST_F(StepEntry, ComparesNumbersForTheLockAndTextsForSending) {
    Type("txPCURR_0", "10.0");
    EXPECT_TRUE(Released());
    Leave();
    EXPECT_EQ(Sent(), Only({27, 'C', 0x27, 0x10, 0, 0}));
    Enter("txPCURR_0", "10.00");
    EXPECT_TRUE(Sent().empty());
}

TEST_F(StepEntry, AnotherStepIsOnlyStoredAndKeepsTheLockUntilItIsSent) {
    for (const int row : {3, 0}) {
        ClickStep(row);
        ASSERT_TRUE(Settle());
    }
    Frames();
    Field("txPVOLT", 3).setEnabled(true);
    Enter("txPVOLT_3", "5");
    EXPECT_EQ(Usable(), "- - - BVCTSO - - -");
    EXPECT_TRUE(Locked());
    EXPECT_EQ(Source().StepVolt(3), "5.00");
    EXPECT_FALSE(Source().StepFlag(3));
    EXPECT_TRUE(Sent().empty());
    ClickStep(3);
    EXPECT_EQ(Sent().size(), 1U);
    EXPECT_TRUE(Source().StepFlag(3));
    EXPECT_TRUE(Released());
    EXPECT_EQ(Usable(), "B B B BVCTSO B B B");
}

TEST_F(StepEntry, EnterCommitsAndEscapeRestoresWithTheFocusInTheField) {
    auto& field = Field("txPVOLT", 0);
    Type("txPVOLT_0", "7");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Sent(), Only({27, 'V', 0x02, 0xBC, 0, 0}));
    EXPECT_EQ(field.selectedText(), "7.00");
    QTest::keyClicks(&field, "8");
    EXPECT_TRUE(Locked());
    QTest::keyClick(&field, Qt::Key_Escape);
    EXPECT_EQ(field.selectedText(), "7.00");
    EXPECT_TRUE(Released() && field.hasFocus());
    Leave();
    EXPECT_FALSE(field.hasSelectedText());
    Type("txPVOLT_0", "151");
    QTest::keyClick(&field, Qt::Key_Enter);
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_TRUE(WaitFor([&] { return field.hasFocus() && field.selectedText() == "151"; }));
    EXPECT_TRUE(Sent().empty());
    Enter("txPVOLT_0", "8");
    Enter("txPVOLT_0", "7.00");
    EXPECT_EQ(Sent().size(), 2U);
}

TEST_F(StepEntry, BoxMenuAndAnotherWindowLeaveAHalfTypedValueHalfTyped) {
    Type("txPCURR_0", "10.0");
    QWidget other;
    other.show();
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Main().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Main()));
    QTest::keyClick(&Main(), Qt::Key_D, Qt::AltModifier);
    ASSERT_TRUE(WaitFor([] { return QApplication::activePopupWidget() != nullptr; }));
    QTest::keyClick(QApplication::activePopupWidget(), Qt::Key_Escape);
    QTest::keyClick(Main().menuWidget(), Qt::Key_Escape);
    ASSERT_TRUE(WaitFor([&] { return Field("txPCURR", 0).hasFocus(); }));
    EXPECT_EQ(Field("txPCURR", 0).text(), "10.0");
    EXPECT_TRUE(Sent().empty());
    // Behind another window scrolling commits it all the same.
    other.activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&other));
    Bar().setValue(1);
    EXPECT_EQ(Sent(), Only({27, 'C', 0x27, 0x10, 0, 0}));
    EXPECT_EQ(Source().StepCurr(0), "10.00");
    // A field that gets the focus with the window is entered like any other.
    Bar().setValue(0);
    Field("txPTIME", 0).setFocus();
    Main().activateWindow();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&Main()));
    Enter("txPTIME_0", "1");
    EXPECT_EQ(Sent(), Only({27, 'T', 0, 1, 0, 0, 0}));
}

}  // namespace
}  // namespace zps::tests
