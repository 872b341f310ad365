// What the panel costs while it polls: its share of a core, and the longest time for which the
// window thread was not free for the operator.
#include "app/program.h"
#include "app/real_surroundings.h"
#include "bench/application.h"
#include "power/log/measurement_log.h"
#include "simulator/line.h"

#include <QLabel>
#include <QPushButton>
#include <QTabBar>
#include <QTemporaryDir>
#include <QTimer>

#include <benchmark/benchmark.h>

#include <chrono>
#include <ctime>

namespace zps::bench {
namespace {

using namespace std::chrono_literals;
using serial::Clock;

// Processor time of the calling thread, in seconds.
double ThreadSeconds() {
    timespec time{};
    clock_gettime(CLOCK_THREAD_CPUTIME_ID, &time);
    return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

template <class Done>
void RunUntil(serial::EventLoop& loop, std::chrono::seconds limit, Done done) {
    loop.RunUntil(done, Clock::now() + limit);
}

// With the last twenty samples in sight, or with all of them.
void PollingForTenSeconds(benchmark::State& state) {
    const QTemporaryDir links;
    qputenv("XDG_RUNTIME_DIR", links.path().toUtf8());
    TimedApplication& application = Application();
    QApplication::setQuitOnLastWindowClosed(false);
    simulator::Line line(std::vector<simulator::SupplyOptions>(1));
    const simulator::PortLink link(1, line.DeviceName());
    RealSurroundings machine;
    serial::EventLoop& loop = machine.Loop;
    Program program(machine.All());
    program.StartUp();
    RunUntil(loop, 10s, [&] { return program.Shared().RatingsKnown(); });
    program.Settings()->close();
    RunUntil(loop, 10s, [&] { return program.Shared().StepFlag(0) && !program.Shared().RxBusy(); });
    RunUntil(loop, 1s, [] { return false; });
    program.Main()
        .findChild<QTabBar*>("tabCURVE")
        ->setCurrentIndex(static_cast<int>(state.range(0)));
    program.Main().findChild<QPushButton*>("cmdOUTPUT")->click();
    // Every sample is another one, as the last digits of a real supply are.
    QTimer load;
    bool more = false;
    QObject::connect(&load, &QTimer::timeout, &load,
                     [&] { line.SetLoad(1, (more = !more) ? 95 : 100); });
    load.start(150ms);
    const auto* log = program.Main().findChild<MeasurementLog*>();
    for ([[maybe_unused]] auto turn : state) {
        application.Longest = {};
        const int rows = log->RowCount();
        const double before = ThreadSeconds();
        RunUntil(loop, 10s, [] { return false; });
        constexpr double seconds = 10;
        state.counters["window_thread_percent_of_a_core"] =
            (ThreadSeconds() - before) / seconds * 100;
        state.counters["longest_event_ms"] =
            std::chrono::duration<double, std::milli>(application.Longest).count();
        state.counters["samples"] = log->RowCount() - rows;
    }
}
BENCHMARK(PollingForTenSeconds)->Arg(0)->Arg(1)->Iterations(1)->Unit(benchmark::kSecond);

}  // namespace
}  // namespace zps::bench
