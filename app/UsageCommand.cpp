#include "UsageCommand.h"

#include <unistd.h>

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <string>
#include <vector>

#include "ProcProcessTable.h"
#include "UsageLiveCommand.h"
#include "app/UsageReport.h"
#include "platform/Environment.h"

int runUsageCommand(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 2, argv + argc);
    std::string error;
    auto options = vantrelle::parseUsageArguments(arguments, error);
    if (!options) {
        std::fprintf(stderr, "vantrelle usage: %s\n%s", error.c_str(), vantrelle::usageSynopsis().c_str());
        return 2;
    }
    if (options->help) {
        std::fputs(vantrelle::usageSynopsis(options->grouping).c_str(), stdout);
        return 0;
    }
    // Days and hours of the zone asked for; colour only for a person at a terminal.
    if (options->timeZone) {
        ::setenv("TZ", options->timeZone->c_str(), 1);
        ::tzset();
    }
    const char* noColor = std::getenv("NO_COLOR");
    options->colour = ::isatty(STDOUT_FILENO) == 1 && (noColor == nullptr || *noColor == 0);
    if (options->live) return vantrelle::runLiveBlocks(options->colour);
    vantrelle::ProcProcessTable processes;
    const std::string report =
        vantrelle::usageReport(*options, vantrelle::ProcessEnvironment::shared(), &processes);
    std::fwrite(report.data(), 1, report.size(), stdout);
    return 0;
}
