#include "bench/application.h"

#include <benchmark/benchmark.h>

// The windows end with the application, on the stack: at the exit of the process the toolkit's own
// statics are gone before them.
int main(int count, char** names) {
    if (!qEnvironmentVariableIsSet("QT_QPA_PLATFORM")) qputenv("QT_QPA_PLATFORM", "offscreen");
    benchmark::Initialize(&count, names);
    if (benchmark::ReportUnrecognizedArguments(count, names)) return 1;
    const zps::bench::TimedApplication application(count, names);
    benchmark::RunSpecifiedBenchmarks();
    benchmark::Shutdown();
}
