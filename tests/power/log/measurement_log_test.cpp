#include "tests/power/log/shown_log.h"

namespace zps::tests {
namespace {

using namespace std::chrono_literals;

const QString Step = QStringLiteral("03");

TEST_F(ShownLog, CountsEachRunFromItsFirstReplyAndKeepsTheRowsOfEarlierRuns) {
    EXPECT_EQ(Row(0), "NO|TIME(sec)|STEP|Voltage(V)|Current(A)");
    EXPECT_EQ(Row(1), "0|0|07|0|0");
    Time += 5s;
    Log.NoteReply();  // the supply has acknowledged "output on"
    Time += 1200ms;
    Log.NoteReply();  // a reply that was no sample
    Sample(1, 3);
    EXPECT_EQ(Row(2), "1|1.37|01|1.00|0.100");  // 1.365 s
    Log.Restart(Step);
    EXPECT_EQ(Row(1), "0|0|03|0|0");
    EXPECT_EQ(Row(4), "3|1.70|03|3.00|0.300");
    for (int row = 1; row <= ChartRows; ++row) EXPECT_EQ(Chart(row), "|");
    Time += 10s;
    Sample(4, 4);  // the first reply is a sample
    Time += 497 * 24h;
    Sample(5, 5);
    EXPECT_EQ(Row(5), "1|0.00|04|4.00|0.400");
    EXPECT_EQ(Row(6), "2|42940800.17|05|5.00|0.500");
    EXPECT_EQ(Chart(1), "4|0.4");
}

TEST_F(ShownLog, ClearLeavesRowOneWithTheSetValuesAndARunGoesOnCounting) {
    Sample(1, 30);
    Log.Clear(Step, QStringLiteral("12.00"), QStringLiteral("1.500"));
    EXPECT_EQ(Log.RowCount(), 2);
    EXPECT_EQ(Row(1), "0|0|03|12.00|1.500");
    EXPECT_EQ(TopRowShown(), "1");
    for (int row = 1; row <= ChartRows; ++row) EXPECT_EQ(Chart(row), "|");
    Sample(31, 32);
    EXPECT_EQ(Row(3), "32|5.12|32|32.00|3.200");
    EXPECT_EQ(Chart(2), "32|3.2");
    EXPECT_EQ(Chart(3), "|");
}

TEST_F(ShownLog, ScrollingShowsTheRowNumberAndFillsTheChartOnlyWithTheOutputOff) {
    Sample(1, 19);
    EXPECT_EQ(Chart(19) + Chart(20), "19|1.9|");
    Sample(20, 100);
    ScrollTo(10);
    EXPECT_EQ(TopRowShown(), "10");
    EXPECT_EQ(Chart(1), "81|8.1");
    Log.SetRunning([] { return false; });
    ScrollTo(11);  // row 1 is the zero row
    EXPECT_EQ(Chart(1), "10|1");
    EXPECT_EQ(Chart(20), "29|2.9");
    QTest::keyClick(&Grid, Qt::Key_End);
    const int rows = Grid.VisibleRows();
    ASSERT_LT(rows, ChartRows);
    EXPECT_EQ(TopRowShown(), std::to_string(101 - rows + 1));
    EXPECT_EQ(Chart(rows), "100|10");
    EXPECT_EQ(Chart(rows + 1), "|");
    for (const auto& [volts, point] : {std::pair{"12.50", "12.5|1.5"}, {"----", "|1.5"}}) {
        Log.Clear(Step, QLatin1String(volts), QStringLiteral("1.5"));
        Sample(1, 20);
        ScrollTo(2);
        ScrollTo(1);
        EXPECT_EQ(Chart(1), point);
        EXPECT_EQ(Chart(2), "1|0.1");
    }
}

TEST_F(ShownLog, SumsUpTheRunUntilTheNextBeginsAndTheRowsThatAreSelected) {
    const auto& run = Control<StatisticsView>("lblRUN_STATISTICS");
    const auto& selected = Control<StatisticsView>("lblSELECTED_STATISTICS");
    const auto& line = Control<StatisticsView>("lblSELECTED");
    for (const QSize size : {QSize(1000, 300), {1500, 300}, {1500, 160}}) {
        const bool panel = size.width() == 1500, both = panel && size.height() == 300;
        Log.resize(size);
        Log.Restart(Step);
        Sample(1, 9);
        Time += 3s;
        Sample(10, 10);
        EXPECT_TRUE(QTest::qWaitFor([&] {
            return run.Words().contains("최소 1.00, 최대 10.00, 평균 5.50, 마지막 10.00");
        }));
        EXPECT_EQ(run.isVisible(), panel);
        EXPECT_TRUE(run.Words().contains("적분 제외 3.2초")) << run.Words().toStdString();
        Log.Clear(Step, {}, {});
        EXPECT_EQ(Log.RunSums().Samples, 10U);
        EXPECT_FALSE(selected.isVisible() || line.isVisible());
        Sample(11, 14);
        QTest::keyClick(&Grid, Qt::Key_Down);
        EXPECT_FALSE(selected.isVisible() || line.isVisible());  // one row is what it shows itself
        QTest::keyClick(&Grid, Qt::Key_Down, Qt::ShiftModifier);
        EXPECT_EQ(selected.isVisible(), both);
        EXPECT_EQ(line.isVisible(), !both);
        EXPECT_TRUE(line.Words().contains("평균 13.25 W · 00:00:00 · 2개"))
            << line.Words().toStdString();
        EXPECT_EQ(line.Words(), selected.Words());
        Log.Clear(Step, {}, {});
        EXPECT_FALSE(selected.isVisible() || line.isVisible());
    }
}

TEST_F(ShownLog, PlotsTheSamplesUntilTheFirstReplyOfTheNextRun) {
    Sample(1, 20);
    Log.Restart({});
    const ChartTable& plotted = Control<LogChart>("MSChart1").Data();
    EXPECT_EQ(plotted[2].Values[1], (Reading{0.3F, 3}));
    Log.NoteReply();
    EXPECT_EQ(plotted, ChartTable{});
}

}  // namespace
}  // namespace zps::tests
