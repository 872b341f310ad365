// How long the curve of the whole run takes to open, to zoom, to move and to follow.
#include "bench/application.h"
#include "power/log/measurement_log.h"

#include <QTabBar>
#include <QWheelEvent>

#include <benchmark/benchmark.h>

#include <algorithm>
#include <cmath>
#include <ctime>
#include <memory>

namespace zps::bench {
namespace {

constexpr int Most = 10'000'000;

// A log of ten runs in a window as wide as a screen.
struct ShownCurve {
    ShownCurve() {
        Log.resize(1920, 400);
        Log.show();
        Log.SetRunning([] { return true; });
        for (std::uint32_t k = 0; k < Most; ++k) {
            const std::uint32_t inRun = k % (Most / 10);
            const auto wave =
                static_cast<float>(std::sin(k * 1e-5) + 1e-3 * (k * 2654435761U >> 22));
            Model.Append(
                {12 + wave, 1 + wave / 5, inRun * 16, static_cast<std::uint8_t>(k / 500 % 7), 3, 4},
                static_cast<std::int32_t>(inRun) + 1);
        }
        QApplication::processEvents();
    }
    void Show(int tab) { Log.findChild<QTabBar*>()->setCurrentIndex(tab); }

    MeasurementLog Log;
    LogModel& Model = *Log.findChild<LogModel*>();
    CurveView& View = *Log.findChild<CurveView*>();
};

ShownCurve& Filled() {
    static ShownCurve* shown = nullptr;
    if (shown == nullptr) {
        const auto made = std::make_shared<ShownCurve>();
        Application().Kept.push_back(made);
        shown = made.get();
    }
    return *shown;
}

void Wheel(QWidget& view, int turn, Qt::KeyboardModifiers with = {}, double share = 0.6) {
    const QPointF place(view.width() * share, view.height() / 2.0);
    QWheelEvent event(place, view.mapToGlobal(place), {}, {0, turn}, {}, with, {}, false);
    QApplication::sendEvent(&view, &event);
}

// In a window of the width of the benchmark's first argument. Tells the picture that took the
// processor longest beside their mean, for a single one that is late is seen.
class Pictures {
  public:
    Pictures(benchmark::State& state, ShownCurve& shown) : State(state) {
        shown.Show(1);
        shown.Log.resize(static_cast<int>(state.range(0)), shown.Log.height());
        for (int k = 0; k < 100; ++k) Wheel(shown.View, -120);
        QApplication::processEvents();
    }
    ~Pictures() {
        State.counters["longest_ms"] = 1000.0 * static_cast<double>(Longest) / CLOCKS_PER_SEC;
    }
    // What has been asked for is drawn.
    void Draw() {
        const std::clock_t begun = std::clock();
        QApplication::processEvents();
        Longest = std::max(Longest, std::clock() - begun);
    }

  private:
    benchmark::State& State;
    std::clock_t Longest = 0;
};

void OpenCurve(benchmark::State& state) {
    ShownCurve& shown = Filled();
    Pictures pictures(state, shown);
    while (state.KeepRunning()) {
        state.PauseTiming();
        shown.Show(0);
        QApplication::processEvents();
        state.ResumeTiming();
        shown.Show(1);
        pictures.Draw();
    }
}
BENCHMARK(OpenCurve)->Arg(3840)->Arg(1920)->Unit(benchmark::kMillisecond);

// From all to some seconds and back, each notch drawn.
void ZoomCurve(benchmark::State& state) {
    ShownCurve& shown = Filled();
    Pictures pictures(state, shown);
    int turns = 0;
    while (state.KeepRunning()) {
        Wheel(shown.View, turns++ % 120 < 60 ? 120 : -120);
        pictures.Draw();
    }
}
BENCHMARK(ZoomCurve)->Arg(3840)->Arg(1920)->Iterations(240)->Unit(benchmark::kMillisecond);

// With so many millionths of all in sight.
void MoveCurve(benchmark::State& state) {
    ShownCurve& shown = Filled();
    Pictures pictures(state, shown);
    while (shown.View.Shown().Width() > 1.6 * static_cast<double>(state.range(1)))
        Wheel(shown.View, 120);
    int turns = 0;
    while (state.KeepRunning()) {
        Wheel(shown.View, turns++ % 20 < 10 ? 24 : -24, Qt::ShiftModifier);
        pictures.Draw();
    }
}
BENCHMARK(MoveCurve)
    ->ArgsProduct({{3840, 1920}, {900'000, 10'000, 1000, 300, 100}})
    ->Unit(benchmark::kMillisecond);

// The first argument is the width again, the second the tab. The last minutes are in sight: drawn
// at its own pace, every half second.
void AppendWhileHiddenOrShown(benchmark::State& state) {
    ShownCurve& shown = Filled();
    Pictures pictures(state, shown);
    while (shown.View.Shown().Width() > 600) Wheel(shown.View, 120, {}, 0.94);
    shown.Show(static_cast<int>(state.range(1)));
    while (state.KeepRunning()) {
        shown.Log.Append(3, {12.1F, 3}, {0.1F, 4});
        pictures.Draw();
    }
}
BENCHMARK(AppendWhileHiddenOrShown)
    ->ArgsProduct({{3840}, {0, 1}})
    ->Iterations(8000)
    ->Unit(benchmark::kMillisecond);

// What a stretch of any length costs.
void Bound(benchmark::State& state) {
    const RunCurve& curve = Filled().Model.Curve();
    std::size_t first = 12345;
    while (state.KeepRunning()) {
        benchmark::DoNotOptimize(curve.BoundsOf(first, curve.Count() - first));
        first = first * 7 % 1'000'000;
    }
    state.counters["bytes_per_sample"] =
        static_cast<double>(curve.Bytes()) / static_cast<double>(curve.Count());
}
BENCHMARK(Bound)->Unit(benchmark::kMicrosecond);

}  // namespace
}  // namespace zps::bench
