#include "tests/set_manual/probing.h"

#include <QLineEdit>

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
    EXPECT_EQ(panel.GetSetting<QLabel>("lblZPS_ENQ").text(), GoodAck);
    EXPECT_EQ(panel.GetSetting<QComboBox>("cmbMODEL").currentText(), "ZPS-1500");
    EXPECT_EQ(panel.GetSetting<QLineEdit>("POWERVoltage").text(), "150.0");
    EXPECT_EQ(panel.GetSetting<QLineEdit>("POWERCurrent").text(), "10.0");
    EXPECT_EQ(panel.Text("lblZPS_MODEL") + panel.Text("lblSPEC_VA"), "ZPS-1500150V/10A");
    SOURCE& source = panel.Source();
    EXPECT_EQ(source.VoltScale, 100);
    EXPECT_EQ(source.CurrScale, 1000);
    EXPECT_EQ(source.FormatVolt(20) + " " + source.FormatVoltFine(19.5F), "20.0 19.500");
    EXPECT_EQ(source.FormatCurr(2) + " " + source.FormatCurrFine(1.5F), "2.00 1.5000");
    EXPECT_EQ(source.StepOvp[99], "163.5");
    QStringList lastRow;
    for (const char* name : {"txPVOLT_6", "txPCURR_6", "txPTIME_6", "txPSLOPE_6", "txPOVP_6"})
        lastRow << panel.Get<QLineEdit>(name).text();
    EXPECT_EQ(lastRow, (QStringList{"0.00", "10.00", "0.00000", "0.00000", "163.5"}));
    for (const char* control : {"fraSTEPLIST", "vscAUTOSTEP", "txPSTEP_6", "cmdOUTPUT"})
        EXPECT_TRUE(panel.Get<QWidget>(control).isEnabledTo(&panel.Main())) << control;
    EXPECT_EQ(panel.Pointer.Within, nullptr);
}

TEST(Identification, ChangesNothingWhenTheKnownSupplyAnswersAgain) {
    ScriptedPanel panel;
    panel.Line().Otherwise(GoodSupply);
    panel.Run.StartUp();
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    panel.Source().StepVolt[3] = "9.00";
    panel.GetSetting<QLabel>("lblZPS_DLE").clear();
    panel.Line().Answer(RatingsReply(200, 50));
    Press(panel, "cmdZPS_DLE");
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    EXPECT_EQ(panel.Source().MaxVolt, 150);
    EXPECT_EQ(panel.Source().StepVolt[3], "9.00");
    // Opened once more the window shows what it knows and asks nothing; a probe by hand stays
    // alone.
    panel.Run.Settings()->close();
    panel.Choose("mnuSET_MANU");
    EXPECT_EQ(panel.GetSetting<QLineEdit>("POWERVoltage").text(), "150.0");
    panel.Line().ForgetWritten();
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    Press(panel, "cmdZPS_ENQ");
    EXPECT_TRUE(StaysQuiet(panel.Line()));
    EXPECT_EQ(panel.Line().WrittenData(), std::vector<Bytes>{Enq(1)});
}

TEST(Identification, SwitchesFunctionsOffOnThePanelOnceTheSupplyHas) {
    SimulatedPanel panel;
    ASSERT_TRUE(panel.Open());
    for (const char* name : {"cmdAUTO", "cmdOCP", "cmdPVsense"}) {
        panel.Click(name);
        ASSERT_TRUE(panel.Settle());
    }
    EXPECT_EQ(panel.Text("OCP_ONOFF"), "ON");
    panel.Choose("mnuSET_MANU");
    Pick(panel, "cmbADDR", 0);
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    EXPECT_EQ(panel.Text("OCP_ONOFF") + panel.Text("Auto_ONOFF") + panel.Text("Vsense_ONOFF"),
              "OFFOFFOFF");
}

TEST(Identification, NamesTheModelAfterThePowerOfTheSupply) {
    struct Rated {
        int TenthsOfVolt, TenthsOfAmpere, Index;
        const char* Name = nullptr;  // of a supply below the list
    };
    std::vector<Rated> rated{
        {2000, 10, 2}, {50, 10, 2, "ZPS-5"}, {33, 30, 2, "ZPS-10"}, {100, 10, 1}};
    const char* models[]{"unNAME",   "ZPS-150",  "ZPS-300",  "ZPS-500",  "ZPS-750",
                         "ZPS-1000", "ZPS-1500", "ZPS-2000", "ZPS-3000", "ZPS_6000"};
    int index = 1;
    for (const int watts : {150, 300, 500, 750, 1000, 1500, 2000, 3000, 6000}) {
        rated.push_back({watts * 10, 10, index});
        index = (index + 1) % 10;
        rated.push_back({watts * 10 + 1, 10, index});
    }
    ScriptedPanel panel;
    panel.Line().Otherwise(GoodSupply);
    panel.Run.StartUp();
    ASSERT_TRUE(panel.WaitForDataResult(GoodData));
    for (const auto& supply : rated) {
        panel.Line().Answer(RatingsReply(supply.TenthsOfVolt, supply.TenthsOfAmpere));
        panel.Source().CheckedAddr = LinkState::NoAddress;
        Press(panel, "cmdZPS_DLE");
        ASSERT_TRUE(WaitFor([&] { return panel.Source().CheckedAddr == 1; }));
        const char* name = supply.Name != nullptr ? supply.Name : models[supply.Index];
        EXPECT_EQ(panel.GetSetting<QComboBox>("cmbMODEL").currentText(), name);
        EXPECT_EQ(panel.Text("lblZPS_MODEL"), name);
        EXPECT_EQ(panel.Source().ModelIndex, supply.Index) << name;
        if (supply.TenthsOfVolt == 2000) {
            EXPECT_EQ(panel.Text("lblSPEC_VA"), "200V/1A");
        }
    }
    Pick(panel, "cmbMODEL", 4);  // by hand: a name, nothing more
    EXPECT_EQ(panel.Text("lblZPS_MODEL"), "ZPS-750");
    EXPECT_EQ(panel.Source().MaxVolt, 6000.1F);
}

}  // namespace
}  // namespace zps::tests
