// Typing into the fields of a step: what is accepted, shown, stored and sent.
#include "tests/power/run_panel.h"

#include <QClipboard>

namespace zps::tests {
namespace {

struct FieldCase {
    const char* Field;
    QString Message;      // title: text
    const char* Refused;  // texts apart by "|"
    const char* Good;     // typed>shown
    Bytes Sent;           // for the first good one
};
const FieldCase Fields[]{
    {"txPVOLT_0",
     "VOLTAGE 설정 오류: VOLTAGE SETTING값 범위 초과\r\n설정값 범위=0~150V",
     "151|150.00002|-0.1|1e99|-1e99",
     "1 2.5 V>12.50|150>150.0|150.000001>150.0|>0.00|19.994>19.99|1e2x>100.0|abc>0.00|-0>0.00",
     {27, 'V', 4, 0xE2, 0, 0}},
    {"txPCURR_0",
     "CURRENT 설정 오류: CURRENT SETTING값 범위 초과\r\n설정값 범위=0~10A",
     "10.001|12e|-1|1e99",
     "1.5>1.500|10>10.00|1.9999>2.000|>0.000|2>2.00",
     {27, 'C', 5, 0xDC, 0, 0}},
    {"txPTIME_0",
     "TIME 설정 오류: TIME SETTING값 범위 초과\r\n설정값 범위=0~50000sec",
     "50000.001|0.0005|0.00099|-1|1e99",
     "12.5>12.50000|50000>50000.00000|0.001>0.00100|>0.00000|x>0.00000",
     {27, 'T', 0, 12, 1, 0xF4, 0}},
    {"txPSLOPE_0",
     "SLOPE 설정 오류: SLOPE SETTING값 범위 초과\r\n설정값 범위=0~50sec",
     "50.00001|0.0005|0.00099|-1|1e99",
     "1.23456>1.23456|50>50.00000|0.001>0.00100|>0.00000|x>0.00000",
     {27, 'D', 4, 0xD2, 56}},
    {"txPOVP_0",
     "OVP 설정 오류: O.V.P SETTING값 범위 초과\r\n설정값 범위=0~163.5V",
     "163.6|-1|1e99",
     "120>120.0|>0.00|163.5>163.5|163.500001>163.5|q>0.00",
     {27, 'O', 0x2E, 0xE0}},
};

class StepEntry : public StepTest {};

TEST_F(StepEntry, OutOfRangeGivesOneMessageAndTheFocusBackEachTimeTheFieldIsLeft) {
    for (const auto& one : Fields) {
        auto& field = Get<QLineEdit>(one.Field);
        const QString before = field.text();
        for (const QString& text : QString(one.Refused).split('|')) {
            SCOPED_TRACE(one.Field + text.toStdString());
            Type(one.Field, text);
            for (const std::size_t times : {1, 2}) {
                Leave();
                ASSERT_TRUE(WaitFor([&] { return field.hasFocus(); }));
                ASSERT_EQ(Boxes.Shown.size(), times);
                EXPECT_EQ(Boxes.LastTitle() + ": " + Boxes.LastText(), one.Message);
                EXPECT_EQ(Boxes.Shown.back().Icon, MessageIcon::Information);
                EXPECT_EQ(field.selectedText(), text);
                EXPECT_TRUE(Locked());
            }
            QTest::keyClick(&field, Qt::Key_Escape);
            EXPECT_EQ(field.text(), before);
            EXPECT_TRUE(Released());
            Leave();
            EXPECT_EQ(std::exchange(Boxes.Shown, {}).size(), 2U);
        }
    }
    EXPECT_TRUE(Frames().empty());
}

TEST_F(StepEntry, TakesTheFirstCellOfARowThatIsPasted) {
    for (const auto& [copied, shown] : {std::pair{"1.5\t20\t0\n", "1.50"}, {"12.5\r\n", "12.50"}}) {
        QGuiApplication::clipboard()->setText(copied);
        Type("txPVOLT_0", {});
        QTest::keyClick(&Get<QLineEdit>("txPVOLT_0"), Qt::Key_V, Qt::ControlModifier);
        Leave();
        EXPECT_EQ(Get<QLineEdit>("txPVOLT_0").text(), shown);
    }
}

TEST_F(StepEntry, InRangeIsReformattedStoredAsDisplayedAndSent) {
    const char* const readOuts[]{"txtVOLT", "txtCURR"};  // set-points are shown at once
    for (std::size_t kind = 0; kind < std::size(Fields); ++kind) {
        const auto& [name, message, refused, good, first] = Fields[kind];
        const QStringList pairs = QString(good).split('|');
        for (const QString& pair : pairs) {
            SCOPED_TRACE(name + pair.toStdString());
            const QString shown = pair.section('>', 1);
            Enter(name, pair.section('>', 0, 0));
            EXPECT_EQ(Get<QLineEdit>(name).text(), shown);
            EXPECT_TRUE(kind > 1 || Get<QLineEdit>(readOuts[kind]).text() == shown);
            EXPECT_EQ(Source().Text(static_cast<StepValue>(kind), 0), shown.toStdString());
            EXPECT_TRUE(Released());
            const auto sent = Frames();
            EXPECT_EQ(sent.size(), 1U);
            EXPECT_TRUE(pair != pairs.front() || sent == Only(first));
        }
    }
    // The lock compares numbers, sending texts.
    Type("txPCURR_0", "2.000");
    EXPECT_TRUE(Released());
    Leave();
    EXPECT_EQ(Frames(), Only({27, 'C', 7, 0xD0, 0, 0}));
    Enter("txPCURR_0", "2.00");
    EXPECT_TRUE(Frames().empty() && Boxes.Shown.empty());
}

TEST_F(StepEntry, AnotherStepIsOnlyStoredAndKeepsTheLockUntilItIsSent) {
    Upload(3);
    Upload(0);
    InRow(3, "txPVOLT").setEnabled(true);
    Enter("txPVOLT_3", "5");
    EXPECT_EQ(Usable(), "- - - BVCTSO - - -");
    EXPECT_EQ(Source().StepVolt(3), "5.00");
    EXPECT_TRUE(Locked() && !Source().StepFlag(3) && Frames().empty());
    EXPECT_EQ(Upload(3).size(), 1U);
    EXPECT_TRUE(Source().StepFlag(3) && Released());
}

TEST_F(StepEntry, EnterCommitsAndEscapeRestoresWithTheFocusInTheField) {
    auto& field = InRow(0, "txPVOLT");
    Type("txPVOLT_0", "7");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Frames(), Only({27, 'V', 0x02, 0xBC, 0, 0}));
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
    EXPECT_TRUE(Frames().empty());
}

TEST_F(StepEntry, AnotherWindowLeavesAHalfTypedValueHalfTyped) {
    QWidget other;
    other.show();
    const auto activate = [](QWidget& window) {
        window.activateWindow();
        EXPECT_TRUE(QTest::qWaitForWindowActive(&window));
    };
    activate(Main());
    Type("txPCURR_0", "10.0");
    activate(other);
    activate(Main());
    EXPECT_EQ(InRow(0, "txPCURR").text(), "10.0");
    EXPECT_TRUE(Frames().empty());
    activate(other);  // where scrolling commits it all the same
    Bar().setValue(1);
    EXPECT_EQ(Frames(), Only({27, 'C', 0x27, 0x10, 0, 0}));
    EXPECT_EQ(Source().StepCurr(0), "10.00");
    // A field that gets the focus with the window is entered like any other.
    Bar().setValue(0);
    InRow(0, "txPTIME").setFocus();
    activate(Main());
    Enter("txPTIME_0", "1");
    EXPECT_EQ(Frames(), Only({27, 'T', 0, 1, 0, 0, 0}));
}

}  // namespace
}  // namespace zps::tests
