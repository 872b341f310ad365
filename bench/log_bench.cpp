// How long the measurement log takes for a sample, for a jump and for a picture, and what it holds.
#include "bench/application.h"
#include "power/log/measurement_log.h"

#include <QScrollBar>

#include <benchmark/benchmark.h>

#include <malloc.h>
#include <map>
#include <memory>

namespace zps::bench {
namespace {

constexpr int Most = 10'000'000;

Sample SampleAt(std::uint32_t k) {
    return {12.0F + static_cast<float>(k % 100) / 1000, 0.1F, k * 16, 3, 3, 4};
}

// A shown log of a run with `rows` samples, which takes more.
struct FilledLog {
    explicit FilledLog(std::int64_t rows) {
        Log.resize(1000, 400);
        Log.show();
        Log.SetRunning([] { return true; });
        Log.Restart(QStringLiteral("03"));
        for (std::uint32_t k = 0; k < rows; ++k) {
            Model.Append(SampleAt(k), static_cast<std::int32_t>(k) + 1);
        }
        QApplication::processEvents();
    }
    void Append() { Log.Append(3, {12.1F, 3}, {0.1F, 4}); }
    void JumpToTheOtherEnd() {
        Grid.verticalScrollBar()->setValue(Grid.TopRow() == 1 ? Grid.RowCount() : 0);
    }

    MeasurementLog Log;
    LogModel& Model = *Log.findChild<LogModel*>();
    LogGrid& Grid = *Log.findChild<LogGrid*>();
    LogChart& Chart = *Log.findChild<LogChart*>();
};

// Each log is filled once: ten million samples take seconds to come.
FilledLog& LogWith(std::int64_t rows) {
    static std::map<std::int64_t, FilledLog*> logs;
    auto& log = logs[rows];
    if (log == nullptr) {
        const auto made = std::make_shared<FilledLog>(rows);
        Application().Kept.push_back(made);
        log = made.get();
    }
    log->Log.SetRunning([] { return true; });
    return *log;
}

void StoreSample(benchmark::State& state) {
    double bytes = 0;
    while (state.KeepRunning()) {
        SampleStore store;
        for (std::uint32_t k = 0; k < state.range(0); ++k) {
            store.Append(SampleAt(k), static_cast<std::int32_t>(k) + 1);
        }
        bytes = static_cast<double>(store.Bytes());
        benchmark::DoNotOptimize(bytes);
    }
    state.SetItemsProcessed(state.iterations() * state.range(0));
    state.counters["bytes_per_sample"] = bytes / static_cast<double>(state.range(0));
}
BENCHMARK(StoreSample)->RangeMultiplier(10)->Range(1000, Most)->Unit(benchmark::kMillisecond);

// One sample more: the row, the scroll to it, the chart's points; nothing is painted.
void AppendSample(benchmark::State& state) {
    FilledLog& filled = LogWith(state.range(0));
    while (state.KeepRunning()) filled.Append();
}
BENCHMARK(AppendSample)
    ->RangeMultiplier(10)
    ->Range(1000, Most)
    ->Iterations(2000)
    ->Unit(benchmark::kMicrosecond);

// One sample more and the picture of grid and chart that follows.
void AppendAndPaint(benchmark::State& state) {
    FilledLog& filled = LogWith(state.range(0));
    while (state.KeepRunning()) {
        filled.Append();
        QApplication::processEvents();
        benchmark::DoNotOptimize(filled.Log.grab());
    }
}
BENCHMARK(AppendAndPaint)->Arg(1000)->Arg(Most)->Unit(benchmark::kMillisecond);

// A jump from one end of the grid to the other, and its picture.
void JumpAndPaint(benchmark::State& state) {
    FilledLog filled(state.range(0));
    while (state.KeepRunning()) {
        filled.JumpToTheOtherEnd();
        benchmark::DoNotOptimize(filled.Grid.grab());
    }
}
BENCHMARK(JumpAndPaint)->Arg(1000)->Arg(Most)->Unit(benchmark::kMillisecond);

// With the output off, where the chart takes twenty rows from the grid as well.
void JumpAndPaintAll(benchmark::State& state) {
    FilledLog& filled = LogWith(state.range(0));
    filled.Log.SetRunning([] { return false; });
    while (state.KeepRunning()) {
        filled.JumpToTheOtherEnd();
        QApplication::processEvents();
        benchmark::DoNotOptimize(filled.Log.grab());
    }
}
BENCHMARK(JumpAndPaintAll)->Arg(1000)->Arg(Most)->Unit(benchmark::kMillisecond);

// The time goes on by so many hundredths of a second; the axes move with every half.
void ReplotChart(benchmark::State& state) {
    FilledLog& filled = LogWith(0);
    ChartTable table;
    int turn = 0;
    while (state.KeepRunning()) {
        ++turn;
        for (int row = 0; row < ChartRows; ++row) {
            const auto volts = static_cast<float>(10 + (row * 7 + turn) % 5);
            const auto amps = static_cast<float>((row * 3 + turn) % 7);
            table[static_cast<std::size_t>(row)] = {
                {Reading{volts, 3}, Reading{amps, 4}},
                row,
                static_cast<std::uint32_t>(16 * row + turn * state.range(0))};
        }
        filled.Chart.SetData(table);
        QApplication::processEvents();
    }
}
BENCHMARK(ReplotChart)->Arg(0)->Arg(50)->Unit(benchmark::kMillisecond);

// The statistics of rows anywhere, none of them a whole number of blocks.
void SumsOfRange(benchmark::State& state) {
    FilledLog& filled = LogWith(Most);
    const auto rows = static_cast<int>(state.range(0));
    int first = 0;
    while (state.KeepRunning()) {
        first = (first + 977) % (Most - rows + 1);
        benchmark::DoNotOptimize(filled.Model.SumsOf(first + 1, first + rows));
    }
}
BENCHMARK(SumsOfRange)->Arg(1000)->Arg(100'000)->Arg(Most - 3)->Unit(benchmark::kMicrosecond);

// A day of polling: how much more memory is in use at its end for each sample, all told.
void DayOfSamples(benchmark::State& state) {
    constexpr int day = 523'636;
    FilledLog filled(0);
    const auto append = [&filled](int samples) {
        for (int k = 1; k <= samples; ++k) {
            filled.Append();
            if (k % 1000 == 0 || k == samples) QApplication::processEvents();
        }
    };
    const auto used = [] { return mallinfo2().uordblks + mallinfo2().hblkhd; };
    append(10'000);
    while (state.KeepRunning()) {
        const std::size_t before = used();
        append(day);
        state.counters["bytes_per_sample"] = static_cast<double>(used() - before) / day;
    }
}
BENCHMARK(DayOfSamples)->Iterations(1)->Unit(benchmark::kSecond);

// The part of a copy that holds the window at one time.
void CopyPortion(benchmark::State& state) {
    FilledLog& filled = LogWith(4000);
    LogCopy copy(filled.Model, filled.Log);
    while (state.KeepRunning()) copy.Start(1, 3999);
}
BENCHMARK(CopyPortion)->Unit(benchmark::kMillisecond);

void ClearLog(benchmark::State& state) {
    FilledLog& filled = LogWith(state.range(0));
    while (state.KeepRunning()) filled.Log.Clear({}, {}, {});
}
BENCHMARK(ClearLog)->Arg(Most)->Iterations(1)->Unit(benchmark::kMillisecond);

}  // namespace
}  // namespace zps::bench
