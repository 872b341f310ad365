// The two boxes of the automatic run, and which steps a sequence may name.
#include "test/test.h"
#include "tests/power/run_panel.h"

#include <QClipboard>
#include <QScrollBar>

namespace zps::tests {
namespace {

constexpr const char* Steps = "txtPAUTOSTEP";
constexpr const char* Count = "txtPAUTOCOUNT";

class RunSequence : public ScriptedRun {
  protected:
    void PressKey(int key, const char* text, Qt::KeyboardModifiers modifiers = {}) {
        QTest::sendKeyEvent(QTest::Click, &Get<QLineEdit>(Steps), Qt::Key(key), text, modifiers);
    }
    // Pastes `text`, which no key press check sees, and leaves the box.
    void Paste(const QString& text) {
        Type(Steps, {});
        QGuiApplication::clipboard()->setText(text);
        PressKey(Qt::Key_V, "v", Qt::ControlModifier);
        Leave();
    }
    // Title, text and icon of the one message of an entry that was refused.
    std::string Refusal(const char* field) {
        const auto& box = Get<QLineEdit>(field);
        EXPECT_TRUE(box.hasFocus() && box.selectedText() == box.text());
        EXPECT_EQ(Sent(), "");
        EXPECT_EQ(Boxes.Shown.size(), 1U);
        const Message message = std::exchange(Boxes.Shown, {}).at(0);
        const bool information = message.Icon == MessageIcon::Information;
        return (message.Title + "|" + message.Text + (information ? "|i" : "")).toStdString();
    }
    const std::string WrongStep = "Auto Step Error|STEP 설정 오류!!!|i";
    const std::string WrongLength = "Auto Step Error|STEP NO 설정 오류!!!|i";
    const std::string Unsent =
        "AUTO SEQUENCE DATA SET ERROR|"
        " AUTO STEP에 현재 설정된 각 STEP의 정보가 ZPS로 송신되지않았습니다.!!\r\n"
        " AUTO STEP을 설정하기 전에 각 STEP을 Click하여 STEP정보를 ZPS로 먼저 송신하세요...\r\n"
        " 송신된 STEP은 하늘색으로 표시됩니다...";
};

TEST_F(RunSequence, DigitsGetTheirSeparatorAndAnyOtherCharacterIsRefusedButStands) {
    Type(Steps, "1234");
    PressKey(Qt::Key_Left, "");
    PressKey(Qt::Key_Delete, "\x7f");
    PressKey(Qt::Key_C, "c", Qt::ControlModifier);
    EXPECT_EQ(Texts(*this, {Steps}), "12>34>");  // deleted, and added again
    EXPECT_TRUE(Boxes.Shown.empty());
    PressKey(Qt::Key_Backspace, "\b");
    EXPECT_EQ(Refusal(Steps), WrongStep);
    PressKey(Qt::Key_X, "x");
    EXPECT_EQ(Texts(*this, {Steps}), "x");
}

TEST_F(RunSequence, ASequenceThatIsNoneIsRefusedWithItsText) {
    using Case = std::pair<const char*, std::string>;
    for (const auto& [text, refusal] :
         {Case{"1", WrongLength}, Case{"01>2", WrongLength}, Case{"0a>", WrongStep},
          Case{"00<", WrongStep}, Case{"-1>", WrongStep}, Case{"00>01>", Unsent}}) {
        Paste(text);
        EXPECT_EQ(Refusal(Steps), refusal) << text;
    }
}

TEST_F(RunSequence, TheSequenceIsSentStepByStepAndAnEmptyOneToWhateverSupply) {
    for (const int step : {3, 7, 42}) {
        Get<QScrollBar>("vscAUTOSTEP").setValue(step);
        ASSERT_TRUE(Press("txPSTEP_0"));
    }
    const Bytes steps(253 - 1, 42);
    using Case = std::pair<QString, Bytes>;
    for (const auto& [text, sent] :
         {Case{"03>07>", {3, 7}}, Case{QString("42>").repeated(253), steps}, Case{"", {}}}) {
        if (text.isEmpty()) Source().Forget();
        Paste(text);
        EXPECT_EQ(LastFrame(), Framed(1, Joined({{27, 'B'}, sent, {0xFF}})));
        ASSERT_TRUE(Settle());
    }
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(RunSequence, AStepThatIsMissingIsToldOnceAndStopsNothing) {
    Type(Steps, "01");
    ASSERT_TRUE(Press("cmdOCP"));
    EXPECT_EQ(Sent(), "X1");
    EXPECT_EQ(Refusal(Steps), Unsent);
    ASSERT_TRUE(Press("cmdPREMOTE") && Press("cmdPREMOTE"));
    EXPECT_EQ(Sent(), "rl");
    Click("cmdPREMOTE");
    ASSERT_TRUE(AreSent(3) && Settle());
    Choose("mnuTEST");
    ASSERT_NE(ScriptedPanel::Run.Test(), nullptr);
    ScriptedPanel::Run.Test()->close();
    Sent();
    EXPECT_TRUE(Boxes.Shown.empty());
    Get<QLineEdit>(Steps).setFocus();
    ASSERT_TRUE(Press("txPSTEP_1"));  // as the message asks for
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    Leave();
    EXPECT_EQ(Sent(), "UB1");
}

TEST_F(RunSequence, AStepThatIsMissingLetsTheOutputGoOnWithinASecondOfTheClick) {
    Type(Steps, "01");
    Click("cmdOUTPUT");
    EXPECT_EQ(Sent() + Texts(*this, {"lblNOTICE"}), "A1");
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    ASSERT_TRUE(Settle());
    Click("cmdOUTPUT");
    ASSERT_TRUE(Settle());
    Type(Steps, "02");
    Boxes.WhileUp = [](const Message&) { QTest::qWait(1200); };
    Sent();
    Click("cmdOUTPUT");
    EXPECT_EQ(Sent(), "");
    EXPECT_TRUE(Text("lblNOTICE").contains("1초")) << Text("lblNOTICE").toStdString();
}

TEST_F(RunSequence, AnEndIsExpectedOnlyOfWhatTheSupplyHasTaken) {
    ASSERT_TRUE(Press("txPSTEP_0"));
    const Bytes refused{1, 21, 22};
    using Case = std::tuple<Bytes, Bytes, const char*>;
    for (const auto& [sequence, count, cycles] :
         {Case{refused, Acknowledged, "2"}, Case{Acknowledged, refused, "3"},
          Case{Acknowledged, Acknowledged, "4"}}) {
        Line().Answer(sequence);
        Paste("00>");
        ASSERT_TRUE(Settle());
        Line().Answer(count);
        Enter(Count, cycles);
        ASSERT_TRUE(Settle() && Press("cmdAUTO"));
        Click("cmdOUTPUT");
        EXPECT_EQ(Text("lblAUTORUN").isEmpty(), *cycles != '4') << cycles;
        ASSERT_TRUE(Settle() && Press("cmdOUTPUT") && Press("cmdAUTO"));
    }
}

TEST_F(RunSequence, TheCountGoesToAddressOneAndItsRangeIsChecked) {
    Source().PowerAddr = 7;
    using Case = std::tuple<const char*, const char*, Bytes>;
    for (const auto& [typed, shown, count] :
         {Case{"50000", "50000", {0xC3, 0x50}}, Case{"", "0", {0, 0}},
          Case{"300x", "300", {1, 44}}}) {
        Enter(Count, typed);
        EXPECT_EQ(LastFrame(), Framed(1, Joined({{27, 'F'}, count})));
        EXPECT_EQ(Texts(*this, {Count}), shown);
        ASSERT_TRUE(Settle());
    }
    Sent();
    Enter(Count, "300");  // as it was
    for (const char* typed : {"50001", "-1"}) {
        Enter(Count, typed);
        EXPECT_EQ(Refusal(Count),
                  "COUNT 설정오류|COUNT SETTING값 범위 초과\r\n설정값 범위=0~150cycle|i");
    }
}

}  // namespace
}  // namespace zps::tests
