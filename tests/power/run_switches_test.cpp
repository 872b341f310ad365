// The five switches: what they send, show and wait for.
#include "controls/entry_field.h"
#include "tests/power/run_panel.h"

#include <QElapsedTimer>
#include <QRegularExpression>
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
    // Opens the test window and closes it.
    void LendThePort() {
        Choose("mnuTEST");
        for (QWidget* window : QApplication::topLevelWidgets())
            if (window->objectName() == "TEST") window->close();
    }
    // Leaves a command without its answer, and does something 0.1 s later, in the wait for it.
    void InTheWait(std::function<void()> act) {
        Line().Answer({});
        Click("cmdOCP");
        QTimer::singleShot(100, &Main(), std::move(act));
        Sent();
    }
};

TEST_F(RunSwitches, EachSwitchSendsItsStateAndShowsItByMouseKeyAndSpaceBar) {
    using Case = std::tuple<const char*, Qt::Key, char, std::string, Colour, Colour>;
    for (const auto& [name, key, letter, lamp, active, idle] :
         {Case{"cmdAUTO", Qt::Key_F6, 'G', "Auto", DarkRed, PaleOrange},
          Case{"cmdPVsense", Qt::Key_F7, 'W', "Vsense", BrightGreen, PaleGreen},
          Case{"cmdOCP", Qt::Key_F8, 'X', "OCP", BrightGreen, PaleGreen},
          Case{"cmdOUTPUT", Qt::Key_F9, 'A', "Output", DarkRed, PaleOrange}}) {
        auto& button = Get<QPushButton>(name);
        EXPECT_TRUE(button.toolTip().endsWith("(" + QKeySequence(key).toString() + ")"));
        button.setFocus();
        const std::function<void()> ways[]{
            [] { QTest::keyClick(QApplication::focusWidget(), Qt::Key_Space); },  // keeps the focus
            [&, name = name] { Click(name); }, [&, key = key] { PressKey(key); }};
        for (const auto& press : ways) {
            for (const bool on : {true, false}) {
                press();
                EXPECT_EQ(Sent(), letter + std::string(on ? "1" : "0"));
                EXPECT_EQ(Texts(*this, {(lamp + "_ONOFF").c_str()}), on ? "ON" : "OFF");
                EXPECT_EQ(Lit((lamp + "LED").c_str()), on ? active : idle);
                ASSERT_TRUE(Settle());
            }
        }
    }
}

TEST_F(RunSwitches, TheOutputGoesOffWhateverStandsInAFieldAndOnOnlyWithoutAnError) {
    ASSERT_TRUE(Press("txPSTEP_1"));
    for (const char* const sent : {"", "A0"}) {
        Type("txPVOLT_1", "151");
        Sent();
        for (const auto key : {Qt::Key_F5, Qt::Key_F6, Qt::Key_F7, Qt::Key_F8, Qt::Key_F9})
            QTest::keyClick(&Get<QWidget>("txPVOLT_1"), key);
        EXPECT_EQ(Sent(), sent);
        EXPECT_TRUE(Boxes.Shown.empty());
        if (*sent != 0) break;
        QTest::keyClick(&Get<QWidget>("txPVOLT_1"), Qt::Key_Escape);
        ASSERT_TRUE(SwitchOn());
    }
    EXPECT_EQ(Texts(*this, {"Output_ONOFF", "txtVOLT", "txtCURR"}), "OFF 0.00 2.000");  // as set
    Click("cmdOUTPUT");
    EXPECT_EQ(Sent() + Texts(*this, {"Output_ONOFF"}), "OFF");
    EXPECT_EQ(Boxes.LastTitle(), "VOLTAGE 설정 오류");
    QTest::keyClick(&Get<QWidget>("txPVOLT_1"), Qt::Key_Escape);
    ASSERT_TRUE(Press("cmdPREMOTE"));
    Type("txPVOLT_1", "151");  // before the step starts
    EXPECT_FALSE(AreSent(2, 500ms));
    EXPECT_EQ(Boxes.Shown.size(), 2U);
}

TEST_F(RunSwitches, TheOutputGoesOffByKeyInAnyWindowOfTheProgramButNotOn) {
    QWidget beside;
    beside.show();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&beside));
    QTest::keyClick(&beside, Qt::Key_F9);
    EXPECT_EQ(Sent(), "");
    ASSERT_TRUE(SwitchOn());
    QTest::keyClick(&beside, Qt::Key_F9);
    EXPECT_TRUE(Sent().ends_with("A0"));
    EXPECT_EQ(Texts(*this, {"Output_ONOFF"}), "OFF");
}

TEST_F(RunSwitches, GoingRemoteStartsTheTopStepAndGoingLocalEndsPollsAndStepStart) {
    const auto shown = [&] {
        return Texts(*this, {"Rem_Loc", "lblPREMOTE", "cmdPREMOTE", "Output_ONOFF"});
    };
    PressKey(Qt::Key_F5);
    EXPECT_EQ(shown(), "REMOTE RS232 REMOTE OFF");
    EXPECT_EQ(Lit("RemoteLED"), PaleOrange);
    ASSERT_TRUE(AreSent(3) && Settle());
    EXPECT_EQ(Sent(), "rU?");
    ASSERT_TRUE(SwitchOn());
    Click("cmdPREMOTE");
    EXPECT_EQ(shown(), "LOCAL LOC LOCAL OFF");
    EXPECT_EQ(Lit("RemoteLED"), DarkRed);
    // To remote and back before the step has started.
    ASSERT_TRUE(Settle() && Press("cmdPREMOTE") && Press("cmdPREMOTE"));
    Sent();
    EXPECT_FALSE(AreSent(1, 500ms));
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
        {[&] { Source().Expect(ExpectData), Line().Arrive(Reading(1, 9)); }, "코드 9"},
        {[&] { Source().Expect(ExpectData), Line().Arrive(Reading(1, 5)); }, "코드 5"},
        {[&] { Boxes.Show(&Main(), {}); }, "1초"}};
    for (const auto& [objects, words] : objections) {
        InTheWait(objects);
        Click("cmdOUTPUT");
        EXPECT_EQ(Sent() + Texts(*this, {"Output_ONOFF"}), "OFF");
        EXPECT_TRUE(Text("lblNOTICE").contains(words)) << Text("lblNOTICE").toStdString();
        Source().WasHandled();
    }
}

// Whatever is sent behind it, and whatever comes of that.
TEST_F(RunSwitches, SwitchingOffThatNobodyConfirmsIsTold) {
    const auto nothing = [] {};
    const auto silentCommand = [&] {
        Line().Answer({});
        Click("cmdOCP");
    };
    const auto refusedCommand = [&] {
        Line().Answer({1, 21, 22});
        Click("cmdOCP");
    };
    const auto otherWindow = [&] { LendThePort(); };
    using Case = std::tuple<Bytes, std::function<void()>, const char*>;
    for (const auto& [answer, behind, words] :
         {Case{{}, nothing, "끄기 명령에 응답이 없습니다"},
          Case{{1, 21, 22}, nothing, "끄기 명령을 거부"}, Case{Acknowledged, nothing, ""},
          Case{{1, 6}, nothing, "끄기 명령에 응답이 없습니다"},
          Case{{}, [&] { Press("cmdOCP"); }, "끄기 명령에 응답이 없습니다"},
          Case{Acknowledged, silentCommand, ""},
          Case{Acknowledged, refusedCommand, "거부했습니다: 과전류 보호 (켜|끄)기"},
          Case{{}, otherWindow, "끄기 명령에 응답이 없습니다"},
          Case{Acknowledged, otherWindow, ""}}) {
        ASSERT_TRUE(SwitchOn());
        Line().Answer(answer);
        Click("cmdOUTPUT");
        behind();
        const bool due = QString(words).startsWith("끄기");
        EXPECT_EQ(WaitFor([&] { return Text("lblNOTICE").contains("끄기"); }, 1300ms), due);
        const QRegularExpression expected(*words == 0 ? "^$" : words);
        EXPECT_TRUE(Text("lblNOTICE").contains(expected)) << Text("lblNOTICE").toStdString();
        EXPECT_EQ(Texts(*this, {"Output_ONOFF"}), "OFF");
    }
}

TEST_F(RunSwitches, AnOutputThatStaysOnUnderLocalControlIsNotCalledOff) {
    const auto shown = [&] { return Text("lblRUNNING") + Get<QLabel>("Output_ONOFF").toolTip(); };
    ASSERT_TRUE(Press("cmdPREMOTE") && AreSent(3) && SwitchOn() && Press("cmdPREMOTE"));
    EXPECT_EQ(shown(), "출력 상태 모름 (본체 제어)");
    EXPECT_TRUE(Text("lblNOTICE").contains("본체 제어로 바꿨습니다"));
    Sent();
    Data = Reading(4 + 192);
    Click("cmdPREMOTE");
    ASSERT_TRUE(WaitFor([&] { return Text("lblNOTICE").contains("켜져 있다고 알립니다"); }));
    EXPECT_FALSE(AreSent(3, 500ms));
    EXPECT_EQ(Sent(), "r?");  // no value goes to the live output
    EXPECT_EQ(shown(), "출력 켜짐 (전원 장치가 알림)전원 장치가 알린 상태: ON");
    EXPECT_EQ(Lit("OutputLED"), DarkRed);
    EXPECT_EQ(Texts(*this, {"Output_ONOFF"}), "OFF");
    ASSERT_TRUE(SwitchOn());
    EXPECT_EQ(shown(), "출력 중");
    // A reply that was under way when the output was switched off tells nothing.
    ASSERT_TRUE(Press("cmdOUTPUT"));
    Source().Expect(ExpectData);
    Line().Arrive(Data);
    ASSERT_TRUE(Settle());
    EXPECT_EQ(shown(), "출력 꺼짐");
    EXPECT_EQ(Lit("OutputLED"), PaleOrange);
    ASSERT_TRUE(Press("cmdPREMOTE"));  // with the output off nothing is in doubt
    EXPECT_EQ(shown() + Text("lblNOTICE"), "출력 꺼짐");
    // Switched off at the front panel: the step starts once the supply has told that.
    ASSERT_TRUE(Press("cmdPREMOTE") && AreSent(3) && SwitchOn() && Press("cmdPREMOTE"));
    Sent();
    Data = Reading(192);
    Click("cmdPREMOTE");
    ASSERT_TRUE(AreSent(4));
    EXPECT_EQ(Sent() + shown().toStdString(), "r?U?출력 꺼짐");
}

TEST_F(RunSwitches, AClosedPortIsReportedBeforeAnythingIsShownAsSwitchedOn) {
    ASSERT_TRUE(SwitchOn() && Handled(Reading(1, 5)));
    const auto shown = [&] { return Text("lblNOTICE") + Text("lblELAPSED"); };
    const QString before = shown();
    EXPECT_TRUE(before.contains("코드 5") && before.contains("지난 운전"));
    Main().HandOver();
    Line().Refuse(1, std::errc::permission_denied);
    ASSERT_TRUE(Main().TakeBack());
    Boxes.Shown.clear();
    Click("cmdOUTPUT");
    EXPECT_EQ(Boxes.Shown.size(), 1U);
    EXPECT_EQ(shown(), before);
}

TEST_F(RunSwitches, ARemoteCommandLeavesARunningOutputAsItIs) {
    ASSERT_TRUE(SwitchOn() && Handled(Reading(4 + 192)));
    Sent();
    Click("cmdPREMOTE");
    ASSERT_TRUE(AreSent(5));
    EXPECT_EQ(Sent().substr(0, 5), "r????");
    EXPECT_EQ(Texts(*this, {"Output_ONOFF", "cmdPREMOTE", "Rem_Loc"}), "ON REMOTE REMOTE");
}

TEST_F(RunSwitches, WhatTheSupplyReportsOtherwiseThanAskedIsMarkedFromTheSecondPollOn) {
    auto& label = Get<QLabel>("OCP_ONOFF");
    ASSERT_TRUE(Press("cmdOCP") && SwitchOn() && Handled(Reading(4, 1)));
    EXPECT_EQ(label.text() + label.toolTip(), "ON전원 장치가 알린 상태: OFF");
    ASSERT_TRUE(Handled(Reading(4 + 32)));
    EXPECT_EQ(label.text() + label.toolTip(), "ON");
    ASSERT_TRUE(Handled(Reading(4)) && Handled(Reading(4)));
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
    EXPECT_TRUE(Text("lblNOTICE").contains("단계 00의 전압 설정을"));
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
    QTest::keyClick(&field, Qt::Key_Return);
    EXPECT_EQ(Sent(), "V1");
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
    EXPECT_TRUE(AreSent(1, 500ms));  // and is polled without any answer
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
    EXPECT_EQ(Sent(), "A1???");  // no step starts behind it
}

}  // namespace
}  // namespace zps::tests
