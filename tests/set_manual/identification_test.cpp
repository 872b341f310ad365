#include "set_manual/models.h"
#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

namespace zps::tests {
namespace {

TEST(Identification, AsksFourThingsOnARealLineAndSetsThePanelUp) {
    SimulatedPanel panel;
    auto before = serial::Clock::now() + 100ms;  // the first comes after 200 ms, the others in 100
    panel.Run.StartUp();
    EXPECT_FALSE(panel.Get<QFrame>("fraSTEPLIST").isEnabledTo(&panel.Main()));
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    std::vector<Bytes> asked;
    for (const auto& frame : panel.Line().TakeReceivedTimed()) {
        // A busy machine may be late with an answer; the question is then asked again.
        if (!asked.empty() && asked.back() == frame.Content) continue;
        EXPECT_GE(frame.FirstAt - before, 98ms);
        asked.push_back(frame.Content);
        before = frame.LastAt;
    }
    EXPECT_EQ(asked, ChainOf(1));
    EXPECT_EQ(panel.GetSetting<QLineEdit>("POWERVoltage").text(), "150.0");
    EXPECT_EQ(panel.Text("lblZPS_MODEL") + panel.Text("lblSPEC_VA"), "ZPS-1500150V/10A");
    EXPECT_EQ(panel.Get<QLineEdit>("txPOVP_6").text(), "163.5");
    EXPECT_TRUE(panel.Get<QFrame>("fraSTEPLIST").isEnabledTo(&panel.Main()));
}

TEST(Identification, IsDoneAnewForAnUnknownSupplyOnly) {
    ScriptedPanel panel;
    ASSERT_TRUE(Identify(panel));
    // Opened once more the window asks nothing; a probe by hand stays alone and changes nothing.
    panel.Run.Settings()->close();
    panel.Choose("mnuSET_MANU");
    panel.Line().ForgetWritten();
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    panel.Line().Answer(RatingsReply(200, 50));
    Press(panel, "cmdZPS_DLE");
    EXPECT_TRUE(panel.WaitForDataResult(GoodData) && StaysQuiet(panel.Line()));
    EXPECT_EQ(panel.Line().WrittenData(), std::vector<Bytes>{Dle});
    EXPECT_EQ(panel.Text("lblSPEC_VA"), "150V/10A");
    // Another adapter under the same port number leads to another supply.
    panel.Line().Folder = "another/COM";
    panel.Run.Settings()->close();
    EXPECT_FALSE(panel.Source().RatingsKnown());
    panel.Line().Otherwise(
        [](const Bytes& block) { return block == Dle ? RatingsReply(33, 30) : Ack; });
    EXPECT_EQ(panel.Text("lblSPEC_VA") + panel.Get<QLineEdit>("txtVOLT").text(), "--------");
    panel.Choose("mnuSET_MANU");
    EXPECT_TRUE(WaitFor([&] { return panel.Source().RatingsKnown(); }));
    EXPECT_EQ(panel.Text("lblZPS_MODEL") + panel.Text("lblSPEC_VA"), "ZPS-103V/3A");
    EXPECT_EQ(panel.Source().ModelIndex, 6);  // where the one before stands
    Pick(panel, "cmbMODEL", 4);               // by hand: a name, nothing more
    EXPECT_EQ(panel.Text("lblZPS_MODEL") + panel.Text("lblSPEC_VA"), "ZPS-7503V/3A");
}

TEST(Identification, GoesOnWhenTheOperatorProbesInBetweenAndTellsHowFarItIs) {
    const struct {
        const char* Button;
        Bytes Asked;
        const char* Stages;  // as they are shown when each frame leaves
    } cases[]{{"cmdZPS_ENQ", Enq, ">... +>.. +>.. ++>. +++>"},
              {"cmdZPS_DLE", Dle, ">... +>.. +..+ ++>+ +++>"}};
    for (const auto& one : cases) {
        ScriptedPanel panel;
        QStringList stages;
        panel.Line().Otherwise([&](const Bytes& block) {
            stages << Rail(panel);
            return GoodSupply(block);
        });
        panel.Run.StartUp();
        ASSERT_TRUE(WaitFor([&] { return panel.Source().RxResult() == Reply::Ack; }));
        Press(panel, one.Button);
        auto chain = ChainOf(1);
        chain.insert(chain.begin() + 1, one.Asked);
        EXPECT_TRUE(WaitFor([&] { return panel.Line().Written().size() >= chain.size(); }));
        EXPECT_EQ(panel.Line().WrittenData(), chain);
        EXPECT_EQ(stages.join(' '), one.Stages);
        EXPECT_TRUE(WaitFor([&] { return Rail(panel) == "++++"; }));
    }
}

TEST(Identification, SwitchesFunctionsOffOnThePanelOnceTheSupplyHas) {
    ScriptedPanel panel;
    ASSERT_TRUE(Identify(panel));
    panel.Run.Settings()->close();
    for (const char* name : {"cmdAUTO", "cmdOCP", "cmdPVsense"}) panel.Click(name);
    EXPECT_EQ(panel.Text("OCP_ONOFF"), "ON");
    panel.Choose("mnuSET_MANU");
    Pick(panel, "cmbADDR", 0);
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    EXPECT_EQ(panel.Text("OCP_ONOFF") + panel.Text("Auto_ONOFF") + panel.Text("Vsense_ONOFF"),
              "OFFOFFOFF");
}

TEST(Identification, FindsTheFirstModelThatHasThePower) {
    int index = 0;
    for (const int watts : {150, 300, 500, 750, 1000, 1500, 2000, 3000, 6000})
        EXPECT_TRUE(ModelIndexOf(watts) == ++index && ModelIndexOf(watts + 0.1) == (index + 1) % 10)
            << watts;
}

TEST(Choice, OfAnAddressIdentifiesTheSupplyThereAndMadeInErrorCostsNothing) {
    ScriptedPanel panel;
    ASSERT_TRUE(Identify(panel));
    panel.Run.Settings()->close();
    ASSERT_TRUE(QTest::qWaitForWindowActive(&panel.Main()));
    panel.Click("txPSTEP_3");
    panel.Type("txPVOLT_3", "12.5");
    panel.Leave();
    panel.Choose("mnuSET_MANU");
    auto& steps = panel.Get<QFrame>("fraSTEPLIST");
    const QImage before = steps.grab().toImage();
    panel.Line().Otherwise(
        [](const Bytes& block) { return block[0] == 7 ? Bytes{} : GoodSupply(block); });
    Pick(panel, "cmbADDR", 6);
    const auto silence = LookOf(Reply::None);
    EXPECT_TRUE(WaitFor([&] { return Show(panel, silence, silence); }));
    panel.Line().Otherwise(GoodSupply);
    for (const int address : {1, 7, 7}) {  // the same one again counts as a choice
        panel.Line().ForgetWritten();
        Pick(panel, "cmbADDR", address - 1);
        ASSERT_TRUE(panel.WaitForDataResult(GoodData));
        EXPECT_EQ(panel.Line().WrittenData(), ChainOf(address));
        EXPECT_EQ(steps.grab().toImage() == before, address == 1);
        EXPECT_EQ(panel.Get<QLineEdit>("txtVOLT").text(), address == 1 ? "12.50" : "0.000");
        EXPECT_EQ(panel.Text("lblSPEC_VA"), address == 1 ? "150V/10A" : "20V/5A");
    }
    // The keys pass by other addresses and ports without asking any of them.
    panel.Line().ForgetWritten();
    QTest::keyClick(&panel.GetSetting<QRadioButton>("optPORT_1"), Qt::Key_Down);
    auto& list = panel.GetSetting<QComboBox>("cmbADDR");
    for (const auto key : {Qt::Key_8, Qt::Key_Down, Qt::Key_Up}) {
        QTest::keyClick(list.view()->isVisible() ? static_cast<QWidget*>(list.view()) : &list, key);
        EXPECT_TRUE(StaysQuiet(panel.Line()));
    }
    EXPECT_EQ(list.currentText() + QString::number(panel.Source().CommPort), "71");
    QTest::keyClick(list.view(), Qt::Key_Return);
    EXPECT_TRUE(WaitFor([&] { return !panel.Line().Written().empty(); }));
    EXPECT_EQ(panel.Line().WrittenData().front(), Control(8, 5));
    EXPECT_TRUE(PressFromOutside(panel.GetSetting<QRadioButton>("optPORT_2")));
    EXPECT_EQ(panel.Source().CommPort, 2);
}

TEST(Choice, PutsTheResultsBackAndKeepsTheOutcomeOfTheSameSupplyOnly) {
    ScriptedPanel panel;
    panel.Line().Refuse(4, std::errc::no_such_device);
    ASSERT_TRUE(Identify(panel));
    const struct {
        char What;
        int Number;
        bool Same;
    } choices[]{{'A', 1, true}, {'P', 1, true},  {'P', 3, false},
                {'P', 3, true}, {'A', 7, false}, {'P', 4, false}};
    for (const auto& [what, number, same] : choices) {
        SCOPED_TRACE(what + std::to_string(number));
        if (panel.Run.Settings() == nullptr) panel.Choose("mnuSET_MANU");
        Press(panel, "cmdZPS_DLE");
        ASSERT_TRUE(panel.WaitForDataResult(GoodData));
        const auto port = "optPORT_" + std::to_string(number);
        what == 'A' ? Pick(panel, "cmbADDR", number - 1) : Press(panel, port.c_str());
        EXPECT_TRUE(Show(panel, NoResultLook, NoResultLook) && !Rail(panel).contains('+'));
        EXPECT_EQ(panel.Source().RatingsKnown(), same);
        panel.Run.Settings()->close();
        EXPECT_EQ(panel.Get<QFrame>("frmPOWERDISPLAY").isVisible(), same);
        // The main window follows to the port, and the panel goes on.
        const auto goesOn = [&] {
            const auto& last = panel.Line().Written().back();
            return last.Maker == 1 && last.CommPort == panel.Source().CommPort;
        };
        EXPECT_TRUE(!same || WaitFor(goesOn));
    }
}

TEST(Choice, OfAnAddressOnAClosedPortFadesTheRatingsOfTheOneBefore) {
    ScriptedPanel panel;
    ASSERT_TRUE(Identify(panel));
    panel.Run.Settings()->close();
    panel.Line().Refuse(1, std::errc::permission_denied);
    panel.Choose("mnuSET_MANU");
    const auto strength = [&] { return panel.GetSetting<QLineEdit>("POWERVoltage").palette(); };
    const QPalette known = strength();
    for (const int address : {7, 1}) {
        Pick(panel, "cmbADDR", address - 1);
        EXPECT_EQ(strength() == known, address == 1);
    }
}

TEST(Choice, EndedByClosingTheWindowIsNotCalledASilentSupply) {
    ScriptedPanel panel;
    panel.Run.StartUp();
    panel.Run.Settings()->close();
    EXPECT_EQ(panel.Text("lblCAUSE"), "통신 확인을 마치지 않았습니다.");
}

TEST(Choice, OfAPortThatCantBeOpenedIsReportedOnceAndNothingIsSentToIt) {
    ScriptedPanel panel;
    panel.Line().Refuse(2, std::errc::no_such_device);
    panel.Run.StartUp();
    const auto boxes = [&](std::size_t count) {
        return WaitFor([&] { return panel.Boxes.Shown.size() == count; }) &&
               StaysQuiet(panel.Line()) && panel.Boxes.Shown.size() == count;
    };
    ASSERT_TRUE(QTest::qWaitForWindowActive(panel.Run.Settings()));
    Press(panel, "optPORT_2");
    EXPECT_TRUE(boxes(1) && panel.Boxes.LastText().contains("COM2"));
    EXPECT_EQ(Rail(panel) + Next(panel).first(2), "....포트");
    EXPECT_EQ(panel.GetSetting<PortOption>("optPORT_1").toolTip(), "scripted/COM1");
    EXPECT_EQ(panel.GetSetting<PortOption>("optPORT_2").accessibleDescription(), "장치 없음");
    Pick(panel, "cmbADDR", 0);                          // starts nothing on a closed port,
    QTest::keyClick(panel.Run.Settings(), Qt::Key_F3);  // and a probe by hand says so
    EXPECT_TRUE(boxes(2));
    panel.Run.Settings()->close();  // the main window can't have it either
    EXPECT_TRUE(boxes(3) && panel.Main().isEnabled());
    panel.Choose("mnuSET_MANU");
    EXPECT_TRUE(boxes(4) && panel.Line().Written().empty());
    panel.Line().Otherwise(GoodSupply);
    Press(panel, "optPORT_1");
    EXPECT_TRUE(panel.WaitForDataResult(GoodData));
}

TEST(Choice, InTheWaitForAReplyOrBeforeARetryEndsTheExchangeAtOnce) {
    const struct {
        Bytes Frame;   // the exchange that is interrupted
        Bytes Answer;  // none: in the wait for the reply; a bad one: in the pause before the retry
        std::string Deed;          // choose 7, ENQ, close, open
        int Holder;                // of the port: 1 is the main window, the others come in order
        std::vector<Bytes> After;  // all that is written afterwards, in silence
    } cases[]{{Enq, {}, "7", 2, {4, Control(7, 5)}},
              {Dle, RatingsReply(0, 0), "E", 2, {4, Enq}},
              {Enq, Nak, "C", 1, {}},
              {Enq, {}, "CO", 3, {4, Enq}}};
    for (const auto& one : cases) {
        SCOPED_TRACE(one.Deed);
        ScriptedPanel panel;
        const auto act = [&] {
            // What the supply before has to say comes too late to be an answer.
            if (one.Deed == "7") QTimer::singleShot(10ms, [&] { panel.Line().Arrive(Ack); });
            if (one.Deed == "7") Pick(panel, "cmbADDR", 6);
            if (one.Deed == "E") Press(panel, "cmdZPS_ENQ");
            if (one.Deed[0] == 'C') panel.Run.Settings()->close();
            if (one.Deed == "CO") panel.Choose("mnuSET_MANU");
        };
        std::vector<Bytes> expected;
        panel.Line().Otherwise([&](const Bytes& block) {
            if (!expected.empty()) return Bytes{};
            if (block != one.Frame) return Ack;
            expected = panel.Line().WrittenData();
            expected.push_back(block);
            expected.insert(expected.end(), one.After.begin(), one.After.end());
            QTimer::singleShot(0, act);
            return one.Answer;
        });
        panel.Run.StartUp();
        const auto& written = panel.Line().Written();
        ASSERT_TRUE(
            WaitFor([&] { return !expected.empty() && written.size() >= expected.size(); }));
        EXPECT_TRUE(StaysQuiet(panel.Line()));
        EXPECT_EQ(panel.Line().WrittenData(), expected);
        EXPECT_FALSE(panel.Source().RxBusy());
        EXPECT_EQ(panel.Line().OpenMaker(), one.Holder);
    }
}

}  // namespace
}  // namespace zps::tests
