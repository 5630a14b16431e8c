// Scan throughput of the agent log scanner on a generated home folder.
//
// VANTRELLE_BENCH_HOME names a folder made by generate-logs; without it a 64 MB one is generated
// into the temporary folder once.
#include <benchmark/benchmark.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <string>

#include "agents/ClaudeCodeLog.h"
#include "platform/VirtualScheduler.h"

namespace {

namespace fs = std::filesystem;

std::uintmax_t folderBytes(const fs::path& folder) {
    std::uintmax_t total = 0;
    for (const auto& entry : fs::recursive_directory_iterator(folder)) {
        if (entry.is_regular_file()) total += entry.file_size();
    }
    return total;
}

fs::path generatedHome(const std::string& name, const std::string& arguments) {
    const fs::path home = fs::temp_directory_path() / name;
    if (!fs::exists(home / ".done")) {
        fs::remove_all(home);
        const std::string command =
            std::string(VANTRELLE_GENERATOR) + " --out " + home.string() + " " + arguments + " > /dev/null";
        if (std::system(command.c_str()) != 0) std::abort();
        std::ofstream(home / ".done") << "ok";
    }
    return home;
}

fs::path benchHome() {
    if (const char* home = std::getenv("VANTRELLE_BENCH_HOME")) return home;
    return generatedHome("vantrelle-bench-home", "--size-mb 64");
}

vantrelle::Date nowForData() {
    return vantrelle::SystemClock::shared().now();
}

void BM_ColdScan(benchmark::State& state) {
    const fs::path home = benchHome();
    const auto bytes = folderBytes(home);
    vantrelle::MapEnvironment environment;
    vantrelle::VirtualScheduler clock(nowForData());
    std::size_t events = 0;
    for (auto _ : state) {
        vantrelle::ClaudeCodeLog log(environment, home, clock);
        const auto snapshot = log.scan();
        events = snapshot.events().size();
        benchmark::DoNotOptimize(events);
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * state.iterations());
    state.counters["events"] = static_cast<double>(events);
}
BENCHMARK(BM_ColdScan)->Unit(benchmark::kMillisecond);

// 1,000 small logs that don't change: a rescan is one attribute read per file.
void BM_UnchangedRescan1000(benchmark::State& state) {
    const fs::path home = fs::temp_directory_path() / "vantrelle-bench-thousand";
    if (!fs::exists(home / ".done")) {
        fs::remove_all(home);
        for (int i = 0; i < 1000; ++i) {
            const fs::path file = home / ".claude/projects" / ("-p" + std::to_string(i % 40)) /
                                  ("s" + std::to_string(i) + ".jsonl");
            fs::create_directories(file.parent_path());
            std::ofstream(file)
                << R"({"type":"assistant","timestamp":"2030-01-01T00:00:00Z","requestId":"r)" << i
                << R"(","message":{"id":"m","model":"claude-sonnet-4-5","usage":{"input_tokens":5,"output_tokens":7}}})"
                << "\n";
        }
        std::ofstream(home / ".done") << "ok";
    }
    vantrelle::MapEnvironment environment;
    vantrelle::VirtualScheduler clock(nowForData());
    vantrelle::ClaudeCodeLog log(environment, home, clock);
    (void)log.scan();
    for (auto _ : state) {
        const auto snapshot = log.scan();
        benchmark::DoNotOptimize(snapshot.events().size());
    }
    state.counters["files"] = static_cast<double>(log.fileCount());
}
BENCHMARK(BM_UnchangedRescan1000)->Unit(benchmark::kMillisecond);

// The generated home scanned once, then 1 MB of new lines appended to one log before each rescan.
void BM_AppendedRescan(benchmark::State& state) {
    const fs::path source = benchHome();
    const fs::path home = fs::temp_directory_path() / "vantrelle-bench-append";
    fs::remove_all(home);
    fs::copy(source, home, fs::copy_options::recursive);
    fs::path target;
    for (const auto& entry : fs::recursive_directory_iterator(home / ".claude/projects")) {
        if (entry.is_regular_file() && entry.path().extension() == ".jsonl") {
            target = entry.path();
            break;
        }
    }
    std::string block;
    {
        std::ifstream in(target);
        std::string line;
        while (block.size() < (1u << 20) && std::getline(in, line)) block += line + "\n";
    }
    vantrelle::MapEnvironment environment;
    vantrelle::VirtualScheduler clock(nowForData());
    vantrelle::ClaudeCodeLog log(environment, home, clock);
    (void)log.scan();
    for (auto _ : state) {
        state.PauseTiming();
        std::ofstream(target, std::ios::app) << block;
        state.ResumeTiming();
        const auto snapshot = log.scan();
        benchmark::DoNotOptimize(snapshot.events().size());
    }
    state.SetBytesProcessed(static_cast<std::int64_t>(block.size()) * state.iterations());
    fs::remove_all(home);
}
BENCHMARK(BM_AppendedRescan)->Unit(benchmark::kMillisecond)->Iterations(20);

}  // namespace

BENCHMARK_MAIN();
