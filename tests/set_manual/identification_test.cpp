#include "set_manual/models.h"
#include "tests/set_manual/probing.h"

#include <gtest/gtest.h>

#include <algorithm>

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
    EXPECT_EQ(std::tuple(panel.Source().VoltScale(), panel.Source().CurrScale()),
              std::tuple(100, 1000));
    EXPECT_EQ(panel.Get<QLineEdit>("txPOVP_6").text(), "163.5");
    for (const char* control : {"fraSTEPLIST", "cmdOUTPUT"})
        EXPECT_TRUE(panel.Get<QWidget>(control).isEnabledTo(&panel.Main())) << control;
}

TEST(Identification, IsDoneAnewForAnUnknownSupplyOnly) {
    ScriptedPanel panel;
    ASSERT_TRUE(Identify(panel));
    panel.Source().RxResult = Reply::None;
    panel.Line().Answer(RatingsReply(200, 50));
    Press(panel, "cmdZPS_DLE");
    ASSERT_TRUE(WaitFor([&] { return panel.Source().RxResult == Reply::Data; }));
    EXPECT_EQ(panel.Text("lblSPEC_VA"), "150V/10A");
    // Opened once more the window asks nothing; a probe by hand stays alone.
    panel.Run.Settings()->close();
    panel.Choose("mnuSET_MANU");
    panel.Line().ForgetWritten();
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    Press(panel, "cmdZPS_ENQ");
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    EXPECT_EQ(panel.Line().WrittenData(), std::vector<Bytes>{Enq});
    // Another adapter under the same port number leads to another supply.
    panel.Line().Folder = "another/COM";
    panel.Run.Settings()->close();
    EXPECT_FALSE(panel.Source().RatingsKnown());
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    panel.Line().Otherwise(
        [](const Bytes& block) { return block == Dle ? RatingsReply(33, 30) : Ack; });
    EXPECT_EQ(panel.Text("lblSPEC_VA") + panel.Get<QLineEdit>("txtVOLT").text(), "--------");
    panel.Choose("mnuSET_MANU");
    EXPECT_TRUE(WaitFor([&] { return panel.Source().RatingsKnown(); }));
    EXPECT_EQ(panel.Text("lblSPEC_VA"), "3V/3A");
    EXPECT_EQ(panel.Text("lblZPS_MODEL"), "ZPS-10");  // below the list
    EXPECT_EQ(panel.Source().ModelIndex, 6);          // where the one before stands
    Pick(panel, "cmbMODEL", 4);                       // by hand: a name, nothing more
    EXPECT_EQ(panel.Text("lblZPS_MODEL") + panel.Text("lblSPEC_VA"), "ZPS-7503V/3A");
}

TEST(Identification, GoesOnWhenTheOperatorProbesInBetween) {
    for (const char* button : {"cmdZPS_ENQ", "cmdZPS_DLE"}) {
        ScriptedPanel panel;
        panel.Line().Otherwise(GoodSupply);
        panel.Run.StartUp();
        ASSERT_TRUE(WaitFor([&] { return panel.Source().RxResult == Reply::Ack; }));
        Press(panel, button);
        auto chain = ChainOf(1);
        chain.insert(chain.begin() + 1, button == std::string("cmdZPS_ENQ") ? Enq : Dle);
        EXPECT_TRUE(WaitFor([&] { return panel.Line().Written().size() >= chain.size(); }));
        EXPECT_EQ(panel.Line().WrittenData(), chain);
    }
}

TEST(Identification, SwitchesFunctionsOffOnThePanelOnceTheSupplyHas) {
    ScriptedPanel panel;
    ASSERT_TRUE(Identify(panel));
    panel.Run.Settings()->close();
    for (const char* name : {"cmdAUTO", "cmdOCP", "cmdPVsense"}) panel.Click(name);
    EXPECT_EQ(panel.Text("OCP_ONOFF"), "ON");
    panel.Get<QPushButton>("cmdPVsense").setText("Vsense OFF");  // as the last poll has shown
    panel.Choose("mnuSET_MANU");
    Pick(panel, "cmbADDR", 0);
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    EXPECT_EQ(panel.Text("OCP_ONOFF") + panel.Text("Auto_ONOFF") + panel.Text("Vsense_ONOFF"),
              "OFFOFFOFF");
    EXPECT_EQ(panel.Get<QPushButton>("cmdPVsense").text(), "Vsense ON");
}

TEST(Identification, FindsTheFirstModelThatHasThePower) {
    int index = 0;
    for (const int watts : {150, 300, 500, 750, 1000, 1500, 2000, 3000, 6000}) {
        EXPECT_EQ(ModelIndexOf(watts), ++index);
        EXPECT_EQ(ModelIndexOf(watts + 0.1), (index + 1) % 10);
    }
}

}  // namespace
}  // namespace zps::tests
