// One dev-server listing through /proc against one through lsof, on this machine as it is. The
// monitor lists through /proc and keeps lsof for where /proc can't be read.
#include <benchmark/benchmark.h>

#include "QtProcessRunner.h"
#include "monitors/LsofListeningPorts.h"
#include "monitors/ProcListeningPorts.h"

namespace {

void listThroughProc(benchmark::State& state) {
    vantrelle::ProcListeningPorts ports;
    std::string error;
    for (auto _ : state) benchmark::DoNotOptimize(ports.list(error));
}
BENCHMARK(listThroughProc)->Unit(benchmark::kMillisecond);

void listThroughLsof(benchmark::State& state) {
    vantrelle::QtProcessRunner runner;
    vantrelle::LsofListeningPorts ports(runner);
    std::string error;
    if (!ports.list(error)) {
        state.SkipWithError("lsof is not installed");
        return;
    }
    for (auto _ : state) benchmark::DoNotOptimize(ports.list(error));
}
BENCHMARK(listThroughLsof)->Unit(benchmark::kMillisecond);

}  // namespace

BENCHMARK_MAIN();
