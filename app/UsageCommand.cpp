#include "UsageCommand.h"

#include <cstdio>
#include <string>
#include <vector>

#include "ProcProcessTable.h"
#include "app/UsageReport.h"
#include "platform/Environment.h"

int runUsageCommand(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 2, argv + argc);
    std::string error;
    const auto options = vantrelle::parseUsageArguments(arguments, error);
    if (!options) {
        std::fprintf(stderr, "vantrelle usage: %s\n%s", error.c_str(), vantrelle::usageSynopsis());
        return 2;
    }
    if (options->help) {
        std::fputs(vantrelle::usageSynopsis(), stdout);
        return 0;
    }
    vantrelle::ProcProcessTable processes;
    const std::string report =
        vantrelle::usageReport(*options, vantrelle::ProcessEnvironment::shared(), &processes);
    std::fwrite(report.data(), 1, report.size(), stdout);
    return 0;
}
