#include "power/log/run_curve_axis.h"
#include "power/log/run_curve_window.h"
#include "tests/power/log/shown_log.h"

#include <QAccessible>
#include <QImage>
#include <QTabBar>
#include <QWheelEvent>

#include <algorithm>
#include <array>
#include <cmath>
#include <random>
#include <string>
#include <vector>

namespace zps::tests {
namespace {

// A log whose samples are known: runs of many lengths, steps, a silence now and then.
struct RandomLog {
    explicit RandomLog(int count) {
        std::int32_t number = 0;
        for (int k = 0; k < count; ++k) {
            const bool starts = k == 0 || Any(3000) == 0;
            number = starts ? 1 : number + 1;
            Seconds = starts ? 0.0 : Seconds + (Any(500) == 0 ? 5 : 0.16);
            if (starts || Any(200) == 0) Step = static_cast<std::uint8_t>(Any(5));
            const auto value = static_cast<float>(Any(1 << 20)) / 1000;
            All.push_back({value, -value, static_cast<std::uint32_t>(std::lround(Seconds * 100)),
                           Step, 3, 4});
            Begins.push_back(starts ||
                             Step != All[All.size() - std::min<std::size_t>(2, All.size())].Step);
            Samples.Append(All.back(), number);
            Curve.Append();
        }
    }
    std::size_t Any(std::size_t limit) { return Random() % limit; }
    Bounds Plain(std::size_t first, std::size_t end) const {
        Bounds all = Bounds::None();
        for (; first < end; ++first) {
            const Sample& sample = All[first];
            all.Least = {std::min(all.Least[0], sample.Volts), std::min(all.Least[1], sample.Amps)};
            all.Most = {std::max(all.Most[0], sample.Volts), std::max(all.Most[1], sample.Amps)};
        }
        return all;
    }

    std::mt19937 Random{7};
    double Seconds = 0;
    std::uint8_t Step = 0;
    std::vector<Sample> All;
    std::vector<bool> Begins;
    SampleStore Samples;
    RunCurve Curve{Samples};
};

TEST(RunCurve, BoundsOfAnyStretchAreThoseOfItsSamples) {
    RandomLog log(70'000);  // four levels of blocks, and more than one of the fourth
    for (int turn = 0; turn < 1000; ++turn) {
        const std::size_t longest = std::size_t{1} << log.Any(17);
        const std::size_t first = log.Any(log.All.size());
        const std::size_t end = std::min(first + log.Any(longest + 1), log.All.size());
        ASSERT_EQ(log.Curve.BoundsOf(first, end), log.Plain(first, end)) << first << ' ' << end;
    }
    EXPECT_EQ(log.Curve.BoundsOf(0, log.All.size()), log.Plain(0, log.All.size()));
    EXPECT_LE(static_cast<double>(log.Curve.Bytes()), 1.2 * 70'000);
}

TEST(RunCurve, PlacesAndBeginningsAreFoundFromAnywhere) {
    RandomLog log(20'000);
    const RunCurve& curve = log.Curve;
    std::size_t begins = 0;
    double before = -1;
    for (std::size_t index = 0; index < curve.Count(); ++index) {
        const double place = curve.PlaceOf(index);
        ASSERT_GT(place, before);
        before = place;
        ASSERT_EQ(curve.IndexAt(place), index);
        ASSERT_EQ(curve.IndexAt(place + 0.001, log.Any(index + 1)), index + 1);
        ASSERT_EQ(curve.IndexOf(curve.PointAt(index)), index);
        if (!log.Begins[index]) continue;
        ASSERT_EQ(curve.NextBeginning(begins), index);
        begins = index + 1;
    }
    EXPECT_EQ(curve.NextBeginning(begins), curve.Count());
    EXPECT_GT(curve.Runs().size(), 3U);
    log.Samples.Clear();
    log.Curve.Clear();
    EXPECT_EQ(curve.Nearest(1), std::nullopt);
    EXPECT_TRUE(curve.TraceOf(0, 10, 100).Places.empty());
}

// Nothing that a sample reaches is lost, however few columns there are, and lines break where runs
// end and where no sample came.
TEST(RunCurve, EveryColumnReachesAsFarAsItsSamplesDo) {
    RandomLog log(20'000);
    const double end = log.Curve.End();
    for (const auto& [low, high] : {std::pair(0.0, end), {end * 0.31, end * 0.32}, {-5.0, 2.0}}) {
        const Trace trace = log.Curve.TraceOf(low, high, 300);
        EXPECT_EQ(trace.Bands.empty(), high - low < 40);
        EXPECT_LE(trace.Bands.size(), 300U);
        EXPECT_TRUE(std::is_sorted(trace.Places.begin(), trace.Places.end()));
        const std::size_t first = log.Curve.IndexAt(low);
        const std::size_t beyond = std::min(log.Curve.IndexAt(high), log.All.size());
        Bounds drawn = Bounds::None();
        for (std::size_t k = 0; k < trace.Places.size(); ++k) {
            const std::array now{trace.Values[0][k], trace.Values[1][k]};
            if (!std::isnan(now[0])) drawn.Add({now, now});
        }
        for (const Band& band : trace.Bands) {
            const double next = band.Place + (high - low) / 300;
            Bounds own = log.Plain(log.Curve.IndexAt(band.Place), log.Curve.IndexAt(next - 1e-6));
            own.Add(band.Reach);
            EXPECT_EQ(own, band.Reach) << band.Place;
            drawn.Add(band.Reach);
        }
        Bounds all = log.Plain(first, beyond);
        all.Add(drawn);
        EXPECT_EQ(drawn, all);  // nothing is missing
        EXPECT_LE(
            drawn.Most[0],
            log.Plain(first > 0 ? first - 1 : 0, std::min(beyond + 1, log.All.size())).Most[0]);
    }
    const std::size_t silent =
        1 + static_cast<std::size_t>(std::adjacent_find(log.All.begin(), log.All.end(),
                                                        [](const Sample& one, const Sample& next) {
                                                            return next.Hundredths >
                                                                   one.Hundredths + 400;
                                                        }) -
                                     log.All.begin());
    const double place = log.Curve.PlaceOf(silent);
    const Trace trace = log.Curve.TraceOf(place - 6, place + 1, 300);
    EXPECT_EQ(std::count_if(trace.Values[0].begin(), trace.Values[0].end(),
                            [](float value) { return std::isnan(value); }),
              1);
}

TEST(RunCurve, ReachesAsFarAsItIsSeenAndNotToSamplesBeyondTheEdges) {
    SampleStore samples;
    RunCurve curve(samples);
    for (std::int32_t number = 1;
         const auto& [hundredths, volts] :
         {std::pair(0U, 1.0F), {50U, 3.0F}, {500U, 100.0F}, {540U, 60.0F}}) {
        samples.Append({volts, 0, hundredths, 0, 2, 3}, number++);
        curve.Append();
    }
    for (const auto& [low, high, least, most] : {std::array{0.25, 4.0, 2.0, 3.0},
                                                 {0.1, 0.2, 1.4, 1.8},
                                                 {4.0, 5.1, 90.0, 100.0},
                                                 {1.0, 4.0, HUGE_VAL, -HUGE_VAL},
                                                 {-1.0, 0.25, 1.0, 2.0}}) {
        const Bounds reach = curve.ReachOf(low, high);
        EXPECT_FLOAT_EQ(reach.Least[0], static_cast<float>(least)) << low;
        EXPECT_FLOAT_EQ(reach.Most[0], static_cast<float>(most)) << low;
    }
}

TEST(RunCurve, TimesAreThoseOfTheRunsAndStepsStandWhereTheyBegin) {
    SampleStore samples;
    RunCurve curve(samples);
    const auto add = [&](std::uint32_t hundredths, std::int32_t number, std::uint8_t step) {
        samples.Append({1, 1, hundredths, step, 2, 3}, number);
        curve.Append();
    };
    for (std::uint32_t k = 0; k < 20; ++k)
        add(k * 100, static_cast<std::int32_t>(k) + 1, k < 7 ? 3 : 4);
    for (std::uint32_t k = 0; k < 20; ++k) add(k * 100, static_cast<std::int32_t>(k) + 1, 4);
    const auto texts = [](const std::vector<CurveTick>& ticks) {
        std::string all;
        for (const auto& tick : ticks)
            all += std::to_string(std::lround(tick.Place)) + "=" + tick.Label + " ";
        return all;
    };
    EXPECT_EQ(texts(TimeTicks(curve, {0, 40, 400, 40})),
              "0=0 5=5 10=10 15=15 20=0 25=5 30=10 35=15 40=20 ");
    const auto steps = StepTicks(curve, {0, 40, 400, 40});
    ASSERT_EQ(steps.size(), 3U);
    EXPECT_TRUE(steps[0].Label.ends_with("03") && steps[1].Label.ends_with("04")) << texts(steps);
    EXPECT_EQ(steps[1].Place, 7);
    EXPECT_EQ(steps[2].Place, 20);
    // With room for two numbers the longest have theirs, and of steps in one place the last.
    EXPECT_EQ(texts(StepTicks(curve, {0, 40, 400, 100})),
              "0= 7=" + steps[1].Label + " 20=" + steps[2].Label + " ");
    EXPECT_EQ(texts(StepTicks(curve, {0, 40, 10, 1})), "0=" + steps[2].Label + " ");
    EXPECT_EQ(RunBreaks(curve, {0, 40, 400, 40}), std::vector{19.5});
    EXPECT_EQ(TimeLabel(3725, 1, true), "1:02:05");
    EXPECT_EQ(TimeLabel(59.5, 0.5, true), "0:00:59.5");
}

TEST(CurveWindow, FollowsTheNewestSampleWhileItsEndIsInSight) {
    CurveWindow window;
    window.GrowTo(1000);
    EXPECT_TRUE(window.ShowsAll() && window.Follows() && window.High() > 1000);
    EXPECT_FALSE(window.GrowTo(1010));  // room ahead: nothing moves
    EXPECT_TRUE(window.GrowTo(1050));
    EXPECT_EQ(window.Low(), 0);
    window.Zoom(0.1, 200);
    EXPECT_NEAR((200 - window.Low()) / window.Width(), 200.0 / 1092, 1e-9);
    EXPECT_FALSE(window.Follows());
    EXPECT_FALSE(window.GrowTo(2000));
    window.Move(1e9);
    EXPECT_TRUE(window.Follows() && window.High() >= 2000 && !window.ShowsAll());
    const double width = window.Width();
    EXPECT_TRUE(window.GrowTo(3000));
    EXPECT_NEAR(window.Width(), width, 1e-6);
    window.Reveal(500);
    EXPECT_TRUE(window.Low() < 500 && window.High() > 500 && !window.Follows());
    window.Move(-1e9);
    EXPECT_EQ(window.Low(), 0);
    for (int k = 0; k < 100; ++k) window.Zoom(0.5, 50);
    EXPECT_EQ(window.Width(), 1);
    window.Zoom(1e9, 0);
    EXPECT_TRUE(window.ShowsAll() && window.Follows());
    window.Stay();
    EXPECT_FALSE(window.GrowTo(4000));
    EXPECT_TRUE(window.GrowTo(0));  // cleared
    EXPECT_TRUE(window.ShowsAll());
}

class ShownCurve : public ShownLog {
  protected:
    void SetUp() override {
        ShownLog::SetUp();
        Sample(1, 600);
        Tabs.setCurrentIndex(1);
        QApplication::processEvents();
    }
    std::string Spoken() {
        return QAccessible::queryAccessibleInterface(&View)
            ->text(QAccessible::Description)
            .toStdString();
    }
    void Press(std::initializer_list<Qt::Key> keys) {
        for (const Qt::Key key : keys) QTest::keyClick(&View, key);
        QApplication::processEvents();
    }
    void Wheel(int turn, QPointF place, Qt::KeyboardModifiers with = {}) {
        QWheelEvent event(place, View.mapToGlobal(place), {}, {0, turn}, {}, with, {}, false);
        QApplication::sendEvent(&View, &event);
        QApplication::processEvents();
    }

    CurveView& View = Control<CurveView>("fraCURVE");
    QTabBar& Tabs = Control<QTabBar>("tabCURVE");
};

TEST_F(ShownCurve, KeysReadZoomMoveAndMarkAndAreHeard) {
    EXPECT_TRUE(Spoken().starts_with("보이는 부분, 300.50 V (1.00~600.00)")) << Spoken();
    EXPECT_TRUE(Spoken().ends_with("끝 따라가기"));
    Grid.setFocus();
    for (const char* next : {"tabCURVE", "fraCURVE", "chkFOLLOW"}) {
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        EXPECT_EQ(QApplication::focusWidget()->objectName(), next);
    }
    View.setFocus();
    Press({Qt::Key_Home, Qt::Key_Space});
    EXPECT_EQ(Spoken(), "NO 1 · 0.00초 · STEP 01 · 1.00 V · 0.100 A, 표시 A");
    Press({Qt::Key_Plus, Qt::Key_Plus, Qt::Key_Plus});
    EXPECT_LT(View.Shown().Width(), 35);
    EXPECT_EQ(View.Shown().Low(), 0);  // where the cursor stands
    Press({Qt::Key_Right, Qt::Key_Right});
    EXPECT_TRUE(Spoken().starts_with("NO 3 ")) << Spoken();
    Press({Qt::Key_PageDown});
    EXPECT_GT(View.Shown().Low(), 20);
    const double low = View.Shown().Low();
    QTest::keyClick(&View, Qt::Key_Left, Qt::ControlModifier);
    EXPECT_LT(View.Shown().Low(), low);
    Press({Qt::Key_End, Qt::Key_Left, Qt::Key_Space});
    EXPECT_TRUE(View.Shown().Follows());
    // Of 599 samples of 1 to 599 V.
    EXPECT_TRUE(
        Spoken().starts_with("NO 599 · 98.67초 · STEP 99 · 599.00 V · 59.900 A, 표시 B, "
                             "Δ +98.67초 · +598.00 V · +59.800 A, A~B, "
                             "300.00 V (1.00~599.00), 30.000 A (0.100~59.900), "))
        << Spoken();
    EXPECT_TRUE(Spoken().find("98.67초, 599개, ") != std::string::npos) << Spoken();
    Press({Qt::Key_0, Qt::Key_F});
    EXPECT_FALSE(Control<QCheckBox>("chkFOLLOW").isChecked());
    Log.Clear({}, {}, {});
    EXPECT_EQ(Spoken(), "측정값 없음");
    EXPECT_EQ(Control<QLabel>("lblCURVEDIFF").text(), "");
}

TEST_F(ShownCurve, WheelZoomsAboutThePointerDragMovesAndAClickMarks) {
    const QPoint middle(View.width() / 2, View.height() / 3);
    QTest::mouseMove(&View, middle);
    const std::string read = Spoken();
    EXPECT_TRUE(read.starts_with("NO 3")) << read;
    for (int k = 0; k < 8; ++k) Wheel(120, middle);
    EXPECT_LT(View.Shown().Width(), 20);
    const auto numberIn = [](const std::string& text) { return std::stoi(text.substr(3)); };
    EXPECT_NEAR(numberIn(Spoken()), numberIn(read), 2);
    const double low = View.Shown().Low();
    QTest::mousePress(&View, Qt::LeftButton, {}, middle);
    for (int x = 5; x <= 100; x += 5) QTest::mouseMove(&View, middle + QPoint(x, 0));
    QTest::mouseRelease(&View, Qt::LeftButton, {}, middle + QPoint(100, 0));
    QApplication::processEvents();
    EXPECT_LT(View.Shown().Low(), low - 0.5);
    EXPECT_TRUE(Control<QLabel>("lblCURVEDIFF").text().isEmpty());
    Wheel(120, middle, Qt::ShiftModifier);
    QTest::mouseClick(&View, Qt::LeftButton, {}, middle);
    QTest::mouseClick(&View, Qt::LeftButton, {}, middle + QPoint(60, 0));
    EXPECT_TRUE(Control<QLabel>("lblCURVEDIFF").text().startsWith("Δ +"));
    for (int k = 0; k < 20; ++k) Wheel(-120, middle);
    EXPECT_TRUE(View.Shown().ShowsAll());
}

// The curve has what a low view has, and its line of figures comes back with the room.
TEST_F(ShownCurve, GivesTheRoomOfALowViewToTheCurve) {
    auto& follow = Control<QCheckBox>("chkFOLLOW");
    auto& canvas = *View.findChild<RunCurveCanvas*>();
    for (const int height : {160, 300, 125}) {
        Log.resize(1000, height);
        const int besides = height == 300 ? 35 : 4;
        EXPECT_TRUE(QTest::qWaitFor([&] { return canvas.height() >= View.height() - besides; }))
            << height << ' ' << canvas.height() << ' ' << View.height();
        EXPECT_EQ(follow.isVisible(), height == 300) << height;
    }
    EXPECT_FALSE(View.PictureNote().isEmpty());
    Press({Qt::Key_End});
    EXPECT_TRUE(
        Control<QLabel>("lblCURVEDIFF").toolTip().startsWith("600.00 V · 60.000 A · NO 600"));
    Press({Qt::Key_F});
    EXPECT_FALSE(View.Shown().Follows());
}

TEST_F(ShownCurve, BeginsAnewWhereTheLogIsClearedInTheMiddleOfARunWhileItIsHidden) {
    Tabs.setCurrentIndex(0);
    Log.Clear("00", "0", "0");
    Sample(601, 650);
    Tabs.setCurrentIndex(1);
    QApplication::processEvents();
    EXPECT_NEAR(View.Shown().High(), 50 * 0.165, 1.2);
    EXPECT_TRUE(Spoken().find("50개") != std::string::npos) << Spoken();
}

TEST_F(ShownCurve, NewSamplesAreSeenWhileItFollowsAndDrawnWhenItIsShownAgain) {
    Sample(601, 700);
    EXPECT_TRUE(QTest::qWaitFor([&] { return View.Shown().High() > 115; }));
    Tabs.setCurrentIndex(0);
    EXPECT_TRUE(Control<LogChart>("MSChart1").isVisible());
    Sample(701, 800);
    EXPECT_LT(View.Shown().High(), 125);
    Tabs.setCurrentIndex(1);
    QApplication::processEvents();
    EXPECT_GT(View.Shown().High(), 131);
    QTest::keyClick(&View, Qt::Key_F);
    Sample(801, 900);
    EXPECT_FALSE(QTest::qWaitFor([&] { return View.Shown().High() > 145; }, 700));
}

}  // namespace
}  // namespace zps::tests
