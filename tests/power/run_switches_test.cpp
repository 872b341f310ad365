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
    // Leaves a command without its answer, and does something 0.1 s later, in the wait for it.
    void InTheWait(std::function<void()> act) {
        Line().Answer({});
        Click("cmdOCP");
        QTimer::singleShot(100, &Main(), std::move(act));
        Sent();
    }
};

TEST_F(RunSwitches, EachSwitchSendsItsStateAndShowsIt) {
    using Case =
        std::tuple<const char*, Qt::Key, std::uint8_t, const char*, const char*, Colour, Colour>;
    for (const auto& [name, key, letter, label, lamp, active, idle] :
         {Case{"cmdAUTO", Qt::Key_F6, 'G', "Auto_ONOFF", "AutoLED", DarkRed, PaleOrange},
          Case{"cmdPVsense", Qt::Key_F7, 'W', "Vsense_ONOFF", "VsenseLED", BrightGreen, PaleGreen},
          Case{"cmdOCP", Qt::Key_F8, 'X', "OCP_ONOFF", "OCPLED", BrightGreen, PaleGreen},
          Case{"cmdOUTPUT", Qt::Key_F9, 'A', "Output_ONOFF", "OutputLED", DarkRed, PaleOrange}}) {
        auto& button = Get<QPushButton>(name);
        EXPECT_TRUE(button.toolTip().endsWith("(" + QKeySequence(key).toString() + ")"));
        button.setFocus();
        for (const int time : {1, 2, 3, 4, 5, 6}) {
            const std::uint8_t on = time % 2 == 1 ? 1 : 0;
            if (time <= 2) {  // and keeps the focus
                QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space);
            } else {
                time <= 4 ? Click(name) : PressKey(key);
            }
            EXPECT_EQ(LastFrame(), Framed(1, {27, letter, on, 0, 0, 0, 0, 0}));
            EXPECT_EQ(Texts(*this, {label}), on == 1 ? "ON" : "OFF");
            EXPECT_EQ(Lit(lamp), on == 1 ? active : idle);
            ASSERT_TRUE(Settle());
        }
    }
    EXPECT_EQ(Sent(), "G1G0G1G0G1G0W1W0W1W0W1W0X1X0X1X0X1X0A1A0A1A0A1A0");
}

TEST_F(RunSwitches, TheOutputGoesOffWhateverStandsInAFieldAndOnOnlyWithoutAnError) {
    const auto sentByAllKeys = [&] {
        Type("txPVOLT_1", "151");
        Sent();
        for (const auto key : {Qt::Key_F5, Qt::Key_F6, Qt::Key_F7, Qt::Key_F8, Qt::Key_F9})
            QTest::keyClick(&Get<QWidget>("txPVOLT_1"), key);
        return Sent();
    };
    ASSERT_TRUE(Press("txPSTEP_1"));
    EXPECT_EQ(sentByAllKeys(), "");
    QTest::keyClick(&Get<QWidget>("txPVOLT_1"), Qt::Key_Escape);
    ASSERT_TRUE(SwitchOn());
    EXPECT_EQ(sentByAllKeys(), "A0");
    EXPECT_TRUE(Boxes.Shown.empty());
    const auto setValues = Source().StepVolt(1) + " " + Source().StepCurr(1);
    EXPECT_EQ(Texts(*this, {"Output_ONOFF", "txtVOLT", "txtCURR"}), "OFF " + setValues);
    Click("cmdOUTPUT");
    EXPECT_EQ(Sent() + Texts(*this, {"Output_ONOFF"}), "OFF");
    EXPECT_EQ(Boxes.LastTitle(), "VOLTAGE 설정 오류");
    QTest::keyClick(&Get<QWidget>("txPVOLT_1"), Qt::Key_Escape);
    ASSERT_TRUE(Press("cmdPREMOTE"));
    Type("txPVOLT_1", "151");  // before the step starts
    EXPECT_FALSE(AreSent(2, 500ms));
    EXPECT_EQ(Boxes.Shown.size(), 2U);
}

TEST_F(RunSwitches, GoingRemoteStartsTheTopStepAndGoingLocalEndsPollsAndStepStart) {
    PressKey(Qt::Key_F5);
    EXPECT_EQ(LastFrame(), (Bytes{1, 0x13, 0x14}));
    EXPECT_EQ(Texts(*this, {"Rem_Loc", "lblPREMOTE"}), "REMOTE RS232");
    EXPECT_EQ(Lit("RemoteLED"), PaleOrange);
    ASSERT_TRUE(AreSent(3) && Settle());
    EXPECT_EQ(Sent(), "rU?");
    ASSERT_TRUE(SwitchOn());
    Sent();
    Click("cmdPREMOTE");
    EXPECT_EQ(LastFrame(), (Bytes{1, 0x11, 0x12}));
    EXPECT_EQ(Texts(*this, {"Rem_Loc", "lblPREMOTE", "Output_ONOFF"}), "LOCAL LOC OFF");
    EXPECT_EQ(Lit("RemoteLED"), DarkRed);
    EXPECT_EQ(Lit("OutputLED"), PaleOrange);
    EXPECT_FALSE(Get<QPushButton>("cmdOUTPUT").isEnabled());
    // To remote and back before the step has started.
    ASSERT_TRUE(Settle() && Press("cmdPREMOTE") && Press("cmdPREMOTE"));
    EXPECT_FALSE(AreSent(4, 500ms));
    EXPECT_EQ(Sent(), "lrl");
}

TEST_F(RunSwitches, OutputOnWaitsForAReplyInProgressAndIgnoresEveryOtherClick) {
    InTheWait([&] {
        for (const char* button : {"cmdOUTPUT", "cmdAUTO", "cmdPVsense", "cmdOCP", "cmdPREMOTE"})
            Click(button);
        for (const char* menu : {"mnuSET_MANU", "mnuTEST", "mnuData_Clear", "mnuPROGRAM_END"})
            Choose(menu);
        EXPECT_FALSE(Main().close());
        Line().Arrive(Acknowledged);
    });
    const qint64 waited = TimeToSwitchOn();
    EXPECT_TRUE(waited >= 90 && waited < 700) << waited;
    EXPECT_EQ(Sent(), "A1");
    EXPECT_TRUE(Boxes.Shown.empty() && Main().isEnabled());
}

TEST_F(RunSwitches, AnObjectionDuringTheWaitCallsTheSwitchingOnOffAndALineSaysWhy) {
    Boxes.WhileUp = [](const Message& message) {
        if (message.Title.isEmpty()) QTest::qWait(1200);
    };
    const std::pair<std::function<void()>, const char*> objections[]{
        {[&] {
             Line().Arrive({1, 21, 22});
         },
         "거부"},
        {[&] { Source().ReplyFlag = ExpectData, Line().Arrive(Reading(1, 9)); }, "코드 9"},
        {[&] { Source().ReplyFlag = ExpectData, Line().Arrive(Reading(1, 5)); }, "코드 5"},
        {[&] { Boxes.Show(&Main(), {}); }, "1초"}};
    for (const auto& [objects, words] : objections) {
        InTheWait(objects);
        Click("cmdOUTPUT");
        EXPECT_EQ(Sent() + Texts(*this, {"Output_ONOFF"}), "OFF");
        EXPECT_TRUE(Text("lblNOTICE").contains(words)) << Text("lblNOTICE").toStdString();
        Source().RxBusy = false;
    }
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
    Enter("txPVOLT_0", "50");
    ASSERT_TRUE(Settle() && SwitchOn() && Handled(Reading(4 + 192)));
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
    ASSERT_TRUE(Press("cmdOCP") && SwitchOn());
    ASSERT_TRUE(Handled(Reading(4, 1)));
    EXPECT_EQ(label.text() + label.toolTip(), "ON전원 장치는 OFF 상태라고 알립니다");
    ASSERT_TRUE(Handled(Reading(4 + 32)));
    EXPECT_EQ(label.text() + label.toolTip(), "ON");
    ASSERT_TRUE(Handled(Reading(4)) && Handled(Reading(4)));
    EXPECT_NE(label.toolTip(), "");
    Click("cmdOUTPUT");
    Click("cmdOCP");  // what was reported says nothing of what is asked now
    EXPECT_EQ(label.toolTip(), "");
    ASSERT_TRUE(Settle() && Press("cmdOCP"));
    Click("cmdPREMOTE");  // the one poll behind the step start is followed by none
    EXPECT_TRUE(WaitFor([&] { return !label.toolTip().isEmpty(); }));
}

TEST_F(RunSwitches, AValueThatTheSupplyRefusedIsMarkedUntilItIsSentAgain) {
    auto& field = Get<EntryField>("txPVOLT_0");
    Line().Answer({1, 21, 22});
    Enter("txPVOLT_0", "5");
    ASSERT_TRUE(Settle());
    EXPECT_TRUE(field.Refused() && !Get<EntryField>("txPCURR_0").Refused());
    Click("txPSTEP_0");
    EXPECT_EQ(Sent(), "V1");
    ASSERT_TRUE(SwitchOn());
    EXPECT_TRUE(Text("lblNOTICE").contains("단계 00")) << Text("lblNOTICE").toStdString();
    field.setFocus();
    Line().Answer({});
    Sent();
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_FALSE(AreSent(2, 400ms));  // set-points stop the poll until their answer
    Line().Arrive(Acknowledged);
    ASSERT_TRUE(WaitFor([&] { return !field.Refused(); }));
    EXPECT_EQ(Sent().substr(0, 2), "V1");
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Sent(), "");
    EXPECT_TRUE(Boxes.Shown.empty());
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
    ASSERT_TRUE(Press("cmdPREMOTE") && Press("cmdPREMOTE"));  // with the output on, and to local
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
