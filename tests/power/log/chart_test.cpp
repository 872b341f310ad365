#include "controls/colours.h"
#include "power/log/chart_axes.h"
#include "power/log/curve_colours.h"
#include "tests/power/log/shown_log.h"

#include <QAccessible>
#include <QImage>

#include <algorithm>
#include <array>
#include <cmath>
#include <cstdlib>
#include <map>
#include <string>
#include <tuple>
#include <vector>

namespace zps::tests {
namespace {

ChartPoint PointOf(std::uint32_t run, double seconds, Reading volts = {12.5F, 3},
                   Reading amps = {1.25F, 4}) {
    return {{volts, amps}, 7, static_cast<std::uint32_t>(std::lround(seconds * 100)), run};
}

// `count` samples of run 1, `every` so many seconds, with those of run 2 behind them.
ChartTable TableOf(double from, double every, std::size_t count, std::vector<double> second = {}) {
    ChartTable table;
    for (std::size_t k = 0; k < count; ++k)
        table.at(k) = PointOf(1, from + every * static_cast<double>(k));
    for (const double seconds : second) table.at(count++) = PointOf(2, seconds);
    return table;
}

TEST(ChartAxes, ValueAxesEndRoundAndStandStillWhileAValueWavers) {
    using Case = std::array<double, 4>;
    for (const auto& [top, highest, room, next] : {Case{0, 0, 1.15, 1},
                                                   {1, 12.5, 1.15, 16},
                                                   {1, 1.25, 1.6, 2},
                                                   {6, 5.22, 1.15, 6},
                                                   {8, 5.21, 1.15, 8},
                                                   {8, 4.9, 1.15, 6},
                                                   {6, 5.5, 1.15, 8},
                                                   {1, 3e-4, 1.6, 6e-4}})
        EXPECT_NEAR(NextTop(top, highest, room), next, next * 1e-9) << top << ' ' << highest;
    EXPECT_EQ(StepLabels(6), (std::array<std::string, 5>{"0", "1.5", "3.0", "4.5", "6.0"}));
    EXPECT_EQ(StepLabels(6e-4)[1], "0.00015");
    for (const auto& [first, second] :
         {std::pair(0.0, 0.0), {0.8, 0.78}, {0.78, 0.8}, {0.2, 0.9}}) {
        const auto [one, other] = Apart(first, second, 0.1);
        EXPECT_GE(std::abs(one - other), 0.1 - 1e-9);
        EXPECT_GE(std::min(one, other), 0.05 - 1e-9);
    }
}

TEST(ChartAxes, TimesAreThoseOfTheRunsWithRoundStepsAndAStepToSpare) {
    const ChartTable runs = TableOf(27.9, 0.15, 2, {0, 0.17});
    for (const auto& [table, low, high, labels] :
         {std::tuple{ChartTable{}, 0.0, 4.0, "0.0 0.5 1.0 1.5 2.0 2.5 3.0 3.5 4.0 "},
          {TableOf(3.14, 0.165, 20), 3.0, 7.0, "3.0 3.5 4.0 4.5 5.0 5.5 6.0 6.5 7.0 "},
          {TableOf(0.3, 1, 10), 0.0, 12.0, "0 2 4 6 8 10 12 "},
          {runs, 27.5, 31.5, "27.5 28.0 0.0 0.5 1.0 1.5 2.0 2.5 "}}) {
        const TimeAxis axis = LayOutTimes(table);
        EXPECT_NEAR(axis.Low, low, 1e-9);
        EXPECT_NEAR(axis.High, high, 1e-9);
        std::string written;
        for (const auto& tick : axis.Ticks) written += tick.Label + ' ';
        EXPECT_EQ(written, labels);
    }
    EXPECT_EQ(LayOutTimes(TableOf(0.3, 1, 10)).Silences, std::vector<double>());
    const auto silences = LayOutTimes(TableOf(1, 1.02, 3, {9})).Silences;
    ASSERT_EQ(silences.size(), 2U);
    EXPECT_NEAR(silences[1], 2.53, 1e-9);
    const TimeAxis axis = LayOutTimes(runs);
    EXPECT_NEAR(axis.Ticks[2].Place, axis.Places[2], 1e-9);  // where the second run begins
    EXPECT_NEAR(axis.Breaks.at(0), 28.3, 1e-9);
    for (const auto& [place, row] : {std::pair{28.4, 2}, {28.2, 1}, {-9.0, 0}, {99.0, 3}})
        EXPECT_EQ(NearestRow(axis, place), row);
    EXPECT_EQ(NearestRow(LayOutTimes({}), 1), std::nullopt);
    EXPECT_EQ(std::pair(LabelEvery(30, 29), LabelEvery(30, 70)), std::pair(1, 4));
}

TEST(ChartMarking, TellsTheDifferenceOfTwoSamplesAndNoTimeBetweenRuns) {
    ChartMarks marks;
    const auto second = PointOf(1, 3.65, {12.512F, 3}, {1.2F, 3});
    for (const auto& [point, difference] :
         {std::pair{PointOf(1, 2), ""},
          {second, "Δ +1.65초 · +0.012 V · -0.0500 A"},
          {second, ""},
          {second, ""},
          {PointOf(2, 1, {12.512F, 2}), "Δ 0.000 V · +0.0500 A"}}) {
        marks.Put(point);
        EXPECT_EQ(marks.Difference().toStdString(), difference);
    }
}

class ShownChart : public ShownLog {
  protected:
    std::string Spoken() {
        return QAccessible::queryAccessibleInterface(&Chart)
            ->text(QAccessible::Description)
            .toStdString();
    }
    // Pixels near `colour` among the curves, left of what is written behind them.
    int Painted(const QColor& colour) { return Painted(colour, Chart.width() / 3); }
    int Painted(const QColor& colour, int width) {
        QApplication::processEvents();
        const QImage picture = Chart.grab().copy(80, 0, width, Chart.height()).toImage();
        int count = 0;
        for (int at = 0; at < picture.width() * picture.height(); ++at) {
            const QColor here = picture.pixelColor(at % picture.width(), at / picture.width());
            const int red = here.red() - colour.red();
            count += std::abs(red) + std::abs(here.blue() - colour.blue()) < 50;
        }
        return count;
    }

    LogChart& Chart = Control<LogChart>("MSChart1");
};

// Where the curve is thickest there is a mark, where it is thinnest there is none.
TEST_F(ShownChart, FillsItsWidthWithACurveThatHasItsMarksOnIt) {
    for (int k = 0; k < 20; ++k) {
        Time += std::chrono::milliseconds(165);
        Log.Append(1, {12.5F, 2}, {1.25F, 3});
    }
    const QColor colour = CurveColour(0, Chart.palette());
    ASSERT_TRUE(QTest::qWaitFor([&] { return Painted(colour) > 0; }, 1000));
    const QImage picture = Chart.grab().toImage();
    std::map<int, double> middles;  // by thickness
    for (int x = picture.width() / 4; x < picture.width() / 2; ++x) {
        std::vector<int> rows;
        for (int y = picture.height() / 5; y < picture.height(); ++y) {  // below the title
            const QColor here = picture.pixelColor(x, y);
            if (here.blue() - here.red() > 60) rows.push_back(y);
        }
        ASSERT_FALSE(rows.empty()) << x;
        middles[rows.back() - rows.front()] = (rows.back() + rows.front()) / 2.0;
    }
    EXPECT_GT(middles.size(), 2U);
    EXPECT_NEAR(middles.begin()->second, middles.rbegin()->second, picture.devicePixelRatio());
}

TEST_F(ShownChart, NoLineCrossesATimeWithoutSamples) {
    Log.resize(1000, 300);
    const QColor colour = CurveColour(0, Chart.palette());
    const auto sampleTwice = [this](std::chrono::milliseconds between) {
        Log.Restart({});
        Log.Append(1, {12, 2}, {1, 3});
        Time += between;
        Log.Append(1, {12, 2}, {1, 3});
    };
    sampleTwice(std::chrono::seconds(1));
    const int line = Painted(colour);
    sampleTwice(std::chrono::seconds(5));  // drawn a moment later
    EXPECT_TRUE(QTest::qWaitFor([&] { return Painted(colour) < line / 4; }));
}

TEST_F(ShownChart, KeysAndPointerPickAndMarkSamples) {
    EXPECT_EQ(Spoken(), "측정값 없음");
    Sample(1, 3);
    EXPECT_EQ(Spoken(), "전압 3 V, 전류 0.3 A, 최근 3회");
    QTest::keyClick(&Grid, Qt::Key_Tab);  // to the tabs
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    ASSERT_TRUE(Chart.hasFocus());
    for (const auto& [key, spoken] :
         {std::pair{Qt::Key_Left, "NO 3 · 0.33초 · 3.00 V · 0.300 A"},
          {Qt::Key_Space, "NO 3 · 0.33초 · 3.00 V · 0.300 A, 표시 A"},
          {Qt::Key_Home, "NO 1 · 0.00초 · 1.00 V · 0.100 A"},
          {Qt::Key_Right, "NO 2 · 0.17초 · 2.00 V · 0.200 A"},
          {Qt::Key_Space,
           "NO 2 · 0.17초 · 2.00 V · 0.200 A, 표시 B, Δ -0.16초 · -1.00 V · -0.100 A"},
          {Qt::Key_End, "NO 3 · 0.33초 · 3.00 V · 0.300 A, 표시 A"},
          {Qt::Key_Right, "NO 3 · 0.33초 · 3.00 V · 0.300 A, 표시 A"}}) {
        QTest::keyClick(&Chart, key);
        EXPECT_EQ(Spoken(), spoken);
    }
    Sample(4, 30);
    QApplication::processEvents();
    EXPECT_TRUE(Spoken().starts_with("NO 11 ")) << Spoken();  // the oldest
    QTest::mouseMove(&Chart, {Chart.width() - 50, 100});
    EXPECT_TRUE(Spoken().starts_with("NO 30 ")) << Spoken();
    EXPECT_EQ(Control<QLabel>("lblCHARTDIFF").text(), "Δ -0.16초 · -1.00 V · -0.100 A");
    QTest::mouseClick(&Chart, Qt::LeftButton, {}, {Chart.width() - 50, 100});
    EXPECT_EQ(Control<QLabel>("lblCHARTDIFF").text(), "");
}

TEST_F(ShownChart, BothCurvesAreSeenOnEveryGroundAlsoWhereBothAreZero) {
    for (const auto& [ground, text] : {std::pair{Qt::white, Qt::black}, {Qt::black, Qt::white}}) {
        QPalette palette;
        palette.setColor(QPalette::Base, ground);
        palette.setColor(QPalette::Text, text);
        Log.setPalette(palette);
        const std::array colours{CurveColour(0, palette), CurveColour(1, palette)};
        for (const QColor& colour : colours) EXPECT_GE(Contrast(colour, ground), 4.5);
        for (const float value : {0.0F, 5.0F}) {
            Log.Clear({}, {}, {});
            for (int k = 0; k < ChartRows; ++k) {
                Time += std::chrono::milliseconds(165);
                Log.Append(0, {value, 3}, {value, 4});
            }
            for (const QColor& colour : colours) EXPECT_GT(Painted(colour), 30) << value;
        }
    }
}

}  // namespace
}  // namespace zps::tests
