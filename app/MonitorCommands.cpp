#include "MonitorCommands.h"

#include <unistd.h>

#include <QGuiApplication>
#include <algorithm>
#include <cstdio>
#include <string>
#include <vector>

#include "QtProcessRunner.h"
#include "WrappedCard.h"
#include "monitors/DevServerMonitor.h"
#include "monitors/LsofListeningPorts.h"
#include "monitors/ProcListeningPorts.h"
#include "monitors/ProcProcessControl.h"
#include "monitors/ScreenTimeReport.h"
#include "monitors/ScreenTimeTracker.h"
#include "monitors/ServersCommand.h"
#include "platform/Environment.h"
#include "platform/VirtualScheduler.h"
#include "support/AppPaths.h"
#include "support/DemoMode.h"
#include "support/LocalCalendar.h"
#include "wrapped/CursorMileage.h"
#include "wrapped/WrappedReport.h"

namespace {

using namespace vantrelle;

int finish(const CommandOutput& result) {
    std::fwrite(result.out.data(), 1, result.out.size(), stdout);
    std::fwrite(result.err.data(), 1, result.err.size(), stderr);
    return result.status;
}

std::vector<std::string> argumentsAfterCommand(int argc, char** argv) {
    return {argv + 2, argv + argc};
}

// No desktop to ask: the reports read the day files only.
class NoScreenActivity final : public ScreenActivity {
public:
    std::optional<FrontmostApp> frontmost() override { return std::nullopt; }
    double idleSeconds() override { return 0; }
};

}  // namespace

int runServersCommand(int argc, char** argv) {
    auto& environment = ProcessEnvironment::shared();
    VirtualScheduler clock(SystemClock::shared().now());
    InlineQueueFactory queues;
    ProcListeningPorts proc;
    QtProcessRunner runner;
    LsofListeningPorts lsof(runner);
    FallbackListeningPorts ports(proc, lsof);
    ProcProcessControl control;
    DevServerMonitor monitor({clock, clock, queues, ports, control, ::getpid(),
                              AppPaths::fromEnvironment(environment).home.string(),
                              DemoMode::resolve(environment)});
    return finish(runServersCommand(argumentsAfterCommand(argc, argv), monitor));
}

int runScreenTimeCommand(int argc, char** argv) {
    auto& environment = ProcessEnvironment::shared();
    const auto directory = AppPaths::fromEnvironment(environment).dataRoot() / "screentime";
    const bool demo = DemoMode::resolve(environment);
    const auto readDay = [&](const std::string& key) {
        ScreenTimeDay day = demo ? ScreenTimeTracker::demoDay() : ScreenTimeDay{};
        if (!demo) {
            if (const auto text = readWholeFile(directory / (key + ".json"))) {
                day = decodeScreenTimeDay(*text).value_or(ScreenTimeDay{});
            }
        }
        std::vector<AppUsage> apps;
        for (const auto& [id, entry] : day) apps.push_back({id, entry.name, entry.seconds, entry.path});
        std::sort(apps.begin(), apps.end(),
                  [](const AppUsage& a, const AppUsage& b) { return a.seconds > b.seconds; });
        return apps;
    };
    const std::string today = LocalCalendar::dayKey(SystemClock::shared().now());
    return finish(runScreenTimeCommand(argumentsAfterCommand(argc, argv), today, readDay));
}

int runWrappedCommand(int argc, char** argv) {
    std::string error;
    const auto options = parseWrappedArguments(argumentsAfterCommand(argc, argv), error);
    if (!options) {
        std::fprintf(stderr, "vantrelle wrapped: %s\n%s", error.c_str(), kWrappedSynopsis);
        return 2;
    }
    if (options->help) {
        std::fputs(kWrappedSynopsis, stdout);
        return 0;
    }
    auto& environment = ProcessEnvironment::shared();
    const AppPaths paths = AppPaths::fromEnvironment(environment);
    const bool demo = DemoMode::resolve(environment);
    VirtualScheduler clock(SystemClock::shared().now());
    // Read-only: a report never starts the ledger or writes a day.
    const WrappedHistory history(WrappedHistory::defaultFile(paths.dataRoot()), clock, /*demoMode=*/true);
    const CursorMileage mileage(CursorMileage::defaultFile(paths.dataRoot()), clock, /*demoMode=*/true);
    NoScreenActivity activity;
    ScreenTimeTracker screenTime({clock, clock, activity, paths.dataRoot() / "screentime", demo});
    if (demo) screenTime.start();
    WrappedSources sources;
    sources.history = &history;
    sources.cursorMeters = [&](Date from, Date to) { return mileage.meters(from, to); };
    sources.appSeconds = [&](Date from, Date to) { return screenTime.usage(from, to); };
    sources.demoMode = demo;
    const WrappedSummary summary = WrappedSummary::make(options->period, clock.now(), sources);
    if (!options->png.empty()) {
        qputenv("QT_QPA_PLATFORM", "offscreen");  // fonts without a display
        int qtArgc = 1;
        QGuiApplication application(qtArgc, argv);
        if (!WrappedCard::savePng(summary, QString::fromStdString(options->png))) {
            std::fprintf(stderr, "vantrelle wrapped: could not write %s\n", options->png.c_str());
            return 1;
        }
    }
    const std::string out = options->json ? wrappedJson(summary) : wrappedText(summary);
    std::fwrite(out.data(), 1, out.size(), stdout);
    return 0;
}
