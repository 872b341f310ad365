// How long the curve of the whole run takes to open, to zoom, to move and to follow.
#include "bench/application.h"
#include "power/log/measurement_log.h"

#include <QTabBar>
#include <QWheelEvent>

#include <benchmark/benchmark.h>

#include <cmath>

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

void Wheel(QWidget& view, int turn, Qt::KeyboardModifiers with = {}) {
    const QPointF place(view.width() * 0.6, view.height() / 2.0);
    QWheelEvent event(place, view.mapToGlobal(place), {}, {0, turn}, {}, with, {}, false);
    QApplication::sendEvent(&view, &event);
}

void OpenCurve(benchmark::State& state) {
    ShownCurve& shown = Filled();
    while (state.KeepRunning()) {
        shown.Show(0);
        QApplication::processEvents();
        shown.Show(1);
        QApplication::processEvents();
    }
}
BENCHMARK(OpenCurve)->Unit(benchmark::kMillisecond);

// From all to some seconds and back, each notch drawn, in a window of this width.
void ZoomCurve(benchmark::State& state) {
    ShownCurve& shown = Filled();
    shown.Show(1);
    shown.Log.resize(static_cast<int>(state.range(0)), shown.Log.height());
    QApplication::processEvents();
    int turns = 0;
    while (state.KeepRunning()) {
        Wheel(shown.View, turns++ % 120 < 60 ? 120 : -120);
        QApplication::processEvents();
    }
}
BENCHMARK(ZoomCurve)->Arg(3840)->Arg(1920)->Unit(benchmark::kMillisecond);

// With so many thousandths of all in sight.
void MoveCurve(benchmark::State& state) {
    ShownCurve& shown = Filled();
    shown.Show(1);
    for (int k = 0; k < 100; ++k) Wheel(shown.View, -120);
    while (shown.View.Shown().Width() > 1.6e6 * static_cast<double>(state.range(0)) / 1000)
        Wheel(shown.View, 120);
    int turns = 0;
    while (state.KeepRunning()) {
        Wheel(shown.View, turns++ % 20 < 10 ? 24 : -24, Qt::ShiftModifier);
        QApplication::processEvents();
    }
}
BENCHMARK(MoveCurve)->Arg(900)->Arg(10)->Arg(1)->Unit(benchmark::kMillisecond);

void AppendWhileHiddenOrShown(benchmark::State& state) {
    ShownCurve& shown = Filled();
    shown.Show(static_cast<int>(state.range(0)));
    while (state.KeepRunning()) shown.Log.Append(3, {12.1F, 3}, {0.1F, 4});
}
BENCHMARK(AppendWhileHiddenOrShown)
    ->Arg(0)
    ->Arg(1)
    ->Iterations(2000)
    ->Unit(benchmark::kMicrosecond);

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
