// Daily work with a simulated supply on a real pseudo-terminal.
#include "power/log/measurement_log.h"
#include "tests/power/run_panel.h"

#include <set>

namespace zps::tests {
namespace {

class RunPolling : public testing::Test, protected SimulatedPanel {
  protected:
    void SetUp() override {
        ASSERT_TRUE(Open());
        Set("txPVOLT_0", "12.5");
    }
    void Set(const char* field, const char* text) {
        Type(field, text);
        Leave();
        ASSERT_TRUE(Settle());
    }
    MeasurementLog& Log() { return *Main().findChild<MeasurementLog*>(); }
    bool Samples(int count, std::chrono::milliseconds limit = 20s) {
        return WaitFor([&, rows = Log().RowCount() + count] { return Log().RowCount() >= rows; },
                       limit);
    }
    std::string Row(int row) {
        QStringList cells;
        for (int column = 0; column < LogColumns; ++column) cells += Log().CellText(row, column);
        return cells.join(' ').toStdString();
    }
};

TEST_F(RunPolling, NoPollIsLostAndEachIsASampleOfTheLog) {
    Line().TakeReceived();
    Click("cmdOUTPUT");
    ASSERT_TRUE(Samples(30));
    const int polls = Log().RowCount() - 2;
    const auto frames = Line().TakeReceived();
    EXPECT_LE(std::ssize(frames), 1 + polls + 1);  // one may be on its way
    for (std::size_t k = 1; k < frames.size(); ++k) EXPECT_EQ(frames[k], (Bytes{1, 16, 17}));
    EXPECT_EQ(Texts(*this, {"lblZPS_ERR", "lblZPS_ERR1", "lblZPS_ENQ"}), "0 0 0");
    EXPECT_EQ(Row(1), "0 0 00 0 0");
    const std::string last = Row(polls + 1);
    EXPECT_TRUE(last.starts_with(std::to_string(polls)) && last.ends_with(" 00 12.500 0.1250"));
    EXPECT_EQ(Texts(*this, {"txtSTEP", "txtVOLT", "txtCURR"}), "00 12.500 0.1250");
    EXPECT_EQ(Log().ChartRow(20)[0], 12.5F);
    for (int click = 0; click < 2; ++click) Click("cmdOUTPUT");  // a new run behind the old one
    EXPECT_EQ(Log().ChartRow(1)[0], std::nullopt);
    ASSERT_TRUE(Samples(1));
    EXPECT_TRUE(Row(polls + 2).starts_with("1 "));
    Click("cmdOUTPUT");
    ASSERT_TRUE(Settle());
    Boxes.Answers = {Answer::No, Answer::Yes};
    Choose("mnuData_Clear");
    EXPECT_EQ(Boxes.LastTitle() + ": " + Boxes.LastText(),
              "측정 데이타 삭제: 현재 데이타를 모두 삭제합니다.");
    EXPECT_GT(Log().RowCount(), polls);
    Choose("mnuData_Clear");
    EXPECT_EQ(Log().RowCount(), 2);
    EXPECT_EQ(Row(1), "0 0 00 12.50 10.00");  // what is set
}

TEST_F(RunPolling, APulledCableFreezesTheReadingsUntilItIsBack) {
    Click("cmdOUTPUT");
    ASSERT_TRUE(Samples(2));
    Line().Unplug();
    EXPECT_FALSE(Samples(2, 600ms));  // one reply may have been on its way
    EXPECT_EQ(Texts(*this, {"Output_ONOFF", "txtVOLT"}), "ON 12.500");
    Line().Plug();
    Link().Point(Line().DeviceName());
    EXPECT_TRUE(Samples(3));
    EXPECT_TRUE(Boxes.Shown.empty());
}

TEST_F(RunPolling, AnAutomaticRunGoesThroughItsStepsToItsEnd) {
    Set("txPTIME_0", "0.3");
    Click("txPSTEP_1");
    ASSERT_TRUE(Settle());
    Set("txPTIME_1", "0.3");
    Set("txtPAUTOSTEP", "0001");
    Set("txtPAUTOCOUNT", "2");
    Click("cmdAUTO");
    ASSERT_TRUE(Settle());
    Click("cmdOUTPUT");
    EXPECT_FALSE(Get<QWidget>("txPSTEP_0").isEnabled());
    ASSERT_TRUE(WaitFor([&] { return !Boxes.Shown.empty(); }));
    EXPECT_EQ(Boxes.LastText(), "Auto Test Ending!!!");
    EXPECT_EQ(Line().StateOf(1).CyclesDone, 2);
    EXPECT_EQ(Texts(*this, {"Output_ONOFF"}), "OFF");
    std::set<QString> steps;
    for (int row = 2; row < Log().RowCount(); ++row) steps.insert(Log().CellText(row, 2));
    EXPECT_EQ(steps, (std::set<QString>{"00", "01"}));
}

TEST_F(RunPolling, AReadingIsMarkedAsOldAlsoWhileAMessageBoxKeepsTheRepliesBack) {
    Click("cmdOUTPUT");
    ASSERT_TRUE(WaitFor([&] { return Text("lblREADING") == "측정값"; }));
    Boxes.WhileUp = [this](const Message&) {
        EXPECT_TRUE(WaitFor([&] { return Text("lblREADING").startsWith("응답 없음"); }, 3s));
    };
    Choose("mnuPROGRAM_END");
    EXPECT_TRUE(WaitFor([&] { return Text("lblREADING") == "측정값"; }));
}

}  // namespace
}  // namespace zps::tests
