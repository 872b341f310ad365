// The five switches: what they send, show and wait for.
#include "controls/entry_field.h"
#include "tests/power/run_panel.h"

#include <QElapsedTimer>
#include <QTimer>

namespace zps::tests {
namespace {

class RunSwitches : public ScriptedRun {
  protected:
    // Presses a function key in a field that has the focus.
    void PressKey(Qt::Key key) {
        auto& field = Get<QLineEdit>("txPVOLT_0");
        field.setFocus();
        EXPECT_TRUE(field.hasFocus());
        QTest::keyClick(&field, key);
    }
    // Clicks the output button and tells how long its click was worked on, in ms.
    qint64 TimeToSwitchOn() {
        QElapsedTimer timer;
        timer.start();
        Click("cmdOUTPUT");
        Data = Reading(4);
        return timer.elapsed();
    }
    bool AreSent(std::size_t frames, std::chrono::milliseconds limit = 5s) {
        return WaitFor([&] { return Line().Written().size() >= frames; }, limit);
    }
};

TEST_F(RunSwitches, EachSwitchSendsItsStateAndShowsIt) {
    using Case =
        std::tuple<const char*, Qt::Key, std::uint8_t, const char*, const char*, Colour, Colour>;
    for (const auto& [button, key, letter, label, lamp, active, idle] :
         {Case{"cmdAUTO", Qt::Key_F6, 'G', "Auto_ONOFF", "AutoLED", DarkRed, PaleOrange},
          Case{"cmdPVsense", Qt::Key_F7, 'W', "Vsense_ONOFF", "VsenseLED", BrightGreen, PaleGreen},
          Case{"cmdOCP", Qt::Key_F8, 'X', "OCP_ONOFF", "OCPLED", BrightGreen, PaleGreen},
          Case{"cmdOUTPUT", Qt::Key_F9, 'A', "Output_ONOFF", "OutputLED", DarkRed, PaleOrange}}) {
        const QString named = QKeySequence(key).toString();
        EXPECT_TRUE(Get<QWidget>(button).toolTip().endsWith("(" + named + ")"));
        for (const int time : {1, 2, 3, 4}) {
            const std::uint8_t on = time % 2 == 1 ? 1 : 0;
            time <= 2 ? Click(button) : PressKey(key);  // nothing is in progress: it goes at once
            const auto sum = static_cast<std::uint8_t>(1 + 2 + 8 + 27 + letter + on + 3);
            EXPECT_EQ(LastFrame(), (Bytes{1, 2, 8, 27, letter, on, 0, 0, 0, 0, 0, 3, sum}));
            EXPECT_EQ(Texts(*this, {label}), on == 1 ? "ON" : "OFF");
            EXPECT_EQ(Lit(lamp), on == 1 ? active : idle);
            ASSERT_TRUE(Quiet());
        }
    }
    EXPECT_EQ(Sent(), "G1G0G1G0W1W0W1W0X1X0X1X0A1A0A1A0");
}

TEST_F(RunSwitches, TheOutputGoesOffWhateverStandsInAFieldAndOnOnlyWithoutAnError) {
    Click("txPSTEP_1");
    ASSERT_TRUE(Quiet() && SwitchOn());
    Type("txPVOLT_1", "151");
    Sent();
    Click("cmdOUTPUT");
    EXPECT_EQ(Sent(), "A0");
    EXPECT_TRUE(Boxes.Shown.empty());
    const auto setValues = Source().StepVolt(1) + " " + Source().StepCurr(1);
    EXPECT_EQ(Texts(*this, {"Output_ONOFF", "txtVOLT", "txtCURR"}), "OFF " + setValues);
    Click("cmdOUTPUT");
    EXPECT_EQ(Sent(), "");
    EXPECT_EQ(Boxes.LastTitle(), "VOLTAGE 설정 오류");
    EXPECT_EQ(Texts(*this, {"Output_ONOFF"}), "OFF");
}

TEST_F(RunSwitches, AStepStartBehindARangeErrorStartsNothing) {
    Click("cmdPREMOTE");
    ASSERT_TRUE(Quiet());
    Type("txPVOLT_0", "151");
    EXPECT_FALSE(AreSent(2, 500ms));
    EXPECT_EQ(Boxes.LastTitle(), "VOLTAGE 설정 오류");
}

TEST_F(RunSwitches, ASwitchThatIsPressedByKeyKeepsTheFocus) {
    Get<QWidget>("cmdOCP").setFocus();
    for (int press = 0; press < 2; ++press) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
        ASSERT_TRUE(Quiet());
    }
    EXPECT_EQ(Sent(), "X1X0");
}

TEST_F(RunSwitches, GoingRemoteStartsTheTopStepAndGoingLocalEndsPollsAndStepStart) {
    PressKey(Qt::Key_F5);
    EXPECT_EQ(LastFrame(), (Bytes{1, 0x13, 0x14}));
    EXPECT_EQ(Texts(*this, {"Rem_Loc", "lblPREMOTE"}), "REMOTE RS232");
    EXPECT_EQ(Lit("RemoteLED"), PaleOrange);
    ASSERT_TRUE(AreSent(3) && Quiet());
    EXPECT_EQ(Sent(), "rU?");
    ASSERT_TRUE(SwitchOn());
    Sent();
    Click("cmdPREMOTE");
    EXPECT_EQ(LastFrame(), (Bytes{1, 0x11, 0x12}));
    EXPECT_EQ(Texts(*this, {"Rem_Loc", "lblPREMOTE", "Output_ONOFF"}), "LOCAL LOC OFF");
    EXPECT_EQ(Lit("RemoteLED"), DarkRed);
    EXPECT_EQ(Lit("OutputLED"), PaleOrange);
    EXPECT_FALSE(Get<QPushButton>("cmdOUTPUT").isEnabled());
    for (int press = 0; press < 2; ++press) {  // to remote and back before the step has started
        ASSERT_TRUE(Quiet());
        Click("cmdPREMOTE");
    }
    EXPECT_FALSE(AreSent(4, 500ms));
    EXPECT_EQ(Sent(), "lrl");
}

TEST_F(RunSwitches, OutputOnWaitsForAReplyInProgressAndIgnoresEveryOtherClick) {
    Line().Answer({});
    Click("cmdOCP");
    QTimer::singleShot(300, &Main(), [&] {
        for (const char* button : {"cmdOUTPUT", "cmdAUTO", "cmdPVsense", "cmdOCP", "cmdPREMOTE"}) {
            Click(button);
        }
        for (const char* menu : {"mnuSET_MANU", "mnuTEST", "mnuData_Clear", "mnuPROGRAM_END"}) {
            Choose(menu);
        }
        EXPECT_FALSE(Main().close());
        Line().Arrive(Acknowledged);
    });
    const qint64 waited = TimeToSwitchOn();
    EXPECT_TRUE(waited >= 290 && waited < 900) << waited;
    EXPECT_EQ(Sent(), "X1A1");
    EXPECT_TRUE(Boxes.Shown.empty() && Main().isEnabled());
}

TEST_F(RunSwitches, AnObjectionDuringTheWaitCallsTheSwitchingOnOffAndALineSaysWhy) {
    using Case = std::pair<Bytes, const char*>;
    for (const auto& [answer, words] : {Case{{1, 21, 22}, "거부"}, Case{Reading(1, 9), "코드 9"},
                                        Case{Reading(1, 5), "코드 5"}}) {
        Line().Answer({});
        Click("cmdOCP");
        if (answer.size() > 3) Source().ReplyFlag = ExpectData;
        QTimer::singleShot(100, &Main(), [&] { Line().Arrive(answer); });
        Sent();
        Click("cmdOUTPUT");
        EXPECT_EQ(Sent() + Texts(*this, {"Output_ONOFF"}), "OFF");
        EXPECT_TRUE(Text("lblNOTICE").contains(words)) << Text("lblNOTICE").toStdString();
        ASSERT_TRUE(Quiet());
    }
    // A box that is up for longer than a second.
    Line().Answer({});
    Click("cmdOCP");
    Boxes.WhileUp = [](const Message&) { QTest::qWait(1200); };
    QTimer::singleShot(100, &Main(), [&] { Boxes.Show(&Main(), {}); });
    Sent();
    Click("cmdOUTPUT");
    EXPECT_EQ(Sent() + Texts(*this, {"Output_ONOFF"}), "OFF");
    EXPECT_TRUE(Text("lblNOTICE").contains("1초"));
}

TEST_F(RunSwitches, SwitchingOffThatNobodyConfirmsIsTold) {
    for (const auto& [answer, words] : {std::pair{Bytes{}, "응답이 없습니다"},
                                        {Bytes{1, 21, 22}, "거부했습니다"},
                                        {Acknowledged, ""}}) {
        ASSERT_TRUE(SwitchOn());
        Line().Answer(answer);
        Click("cmdOUTPUT");
        const auto told = [&] { return !Text("lblNOTICE").isEmpty(); };
        EXPECT_EQ(WaitFor(told, 1300ms), *words != 0);
        EXPECT_TRUE(Text("lblNOTICE").contains(words));
        EXPECT_EQ(Texts(*this, {"Output_ONOFF"}), "OFF");
    }
}

TEST_F(RunSwitches, ARemoteCommandLeavesARunningOutputAsItIs) {
    Enter(*this, "txPVOLT_0", "50");
    ASSERT_TRUE(Quiet() && SwitchOn() && Handled(Reading(4 + 192)));
    Sent();
    Click("cmdPREMOTE");
    EXPECT_EQ(LastFrame(), (Bytes{1, 0x13, 0x14}));
    ASSERT_TRUE(AreSent(5));
    EXPECT_EQ(Sent().substr(0, 5), "r????");
    EXPECT_EQ(Texts(*this, {"Output_ONOFF", "cmdPREMOTE", "Rem_Loc"}), "ON REMOTE REMOTE");
    ASSERT_TRUE(Handled(Reading(1, 5)));  // a trip is seen
    EXPECT_EQ(Texts(*this, {"Output_ONOFF"}), "OFF");
}

TEST_F(RunSwitches, WhatTheSupplyReportsOtherwiseThanAskedIsMarkedFromTheSecondPollOn) {
    auto& label = Get<QLabel>("OCP_ONOFF");
    Click("cmdOCP");
    ASSERT_TRUE(Quiet() && SwitchOn());
    ASSERT_TRUE(Handled(Reading(4, 1)));
    EXPECT_EQ(label.text(), "ON");
    EXPECT_EQ(label.toolTip(), "전원 장치는 OFF 상태라고 알립니다");
    EXPECT_EQ(Lit("OCPLED"), PaleGreen);
    ASSERT_TRUE(Handled(Reading(4 + 32)));
    EXPECT_EQ(label.toolTip(), "");
    EXPECT_EQ(Lit("OCPLED"), BrightGreen);
    ASSERT_TRUE(Handled(Reading(4)) && Handled(Reading(4)));
    EXPECT_NE(label.toolTip(), "");
    Click("cmdOUTPUT");
    Click("cmdOCP");  // what was reported says nothing of what is asked now
    EXPECT_EQ(label.toolTip(), "");
}

TEST_F(RunSwitches, AValueThatTheSupplyRefusedIsMarkedUntilItIsSentAgain) {
    auto& field = Get<EntryField>("txPVOLT_0");
    Line().Answer({1, 21, 22});
    Enter(*this, "txPVOLT_0", "5");
    ASSERT_TRUE(Quiet());
    EXPECT_TRUE(field.Refused());
    EXPECT_FALSE(Get<EntryField>("txPCURR_0").Refused());
    Click("txPSTEP_0");
    EXPECT_EQ(Sent(), "V1");
    ASSERT_TRUE(SwitchOn());
    EXPECT_TRUE(Text("lblNOTICE").contains("단계 00")) << Text("lblNOTICE").toStdString();
    EXPECT_TRUE(Boxes.Shown.empty());
    field.setFocus();
    Sent();
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Sent().substr(0, 2), "V1");
    ASSERT_TRUE(WaitFor([&] { return !field.Refused(); }));
    Sent();
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Sent(), "");
}

TEST_F(RunSwitches, AStepWhoseAnswerStaysOutUntilTheOutputGoesOnIsNamed) {
    Line().Answer({});
    Click("cmdPREMOTE");
    QTimer::singleShot(600, &Main(), [&] {
        Line().Otherwise([](const Bytes&) { return Bytes{}; });
        Line().Arrive(Acknowledged);  // the step starts 0.2 s later
    });
    Click("cmdOUTPUT");
    EXPECT_EQ(Sent(), "rUA1");
    EXPECT_TRUE(Text("lblNOTICE").contains("단계 00")) << Text("lblNOTICE").toStdString();
}

TEST_F(RunSwitches, OutputOnWaitsForAStepStartOrCallsItOffAfterASecond) {
    Choose("mnuSET_MANU");
    ScriptedPanel::Run.Settings()->close();
    Sent();
    TimeToSwitchOn();
    EXPECT_EQ(Sent(), "UA1");
    ASSERT_TRUE(AreSent(3));  // the polls go on: no step start has cleared the output
    EXPECT_TRUE(Get<QPushButton>("txPSTEP_0").isEnabled());
    EXPECT_FALSE(Get<QPushButton>("txPSTEP_1").isEnabled());  // the supply does not hold it
    for (int press = 0; press < 2; ++press) {  // to remote with the output on, and to local
        Click("cmdPREMOTE");
        ASSERT_TRUE(Quiet());
    }
    Line().Answer({});  // the supply does not say that it has gone to remote
    Click("cmdPREMOTE");
    Sent();
    const qint64 waited = TimeToSwitchOn();
    EXPECT_TRUE(waited >= 990 && waited < 1500) << waited;
    ASSERT_TRUE(AreSent(4));
    EXPECT_EQ(Sent(), "A1???");
}

}  // namespace
}  // namespace zps::tests
