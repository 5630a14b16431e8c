// The `vantrelle usage` report without the Qt shell, for timing it against other tools in builds
// that leave Qt out. Same arguments, same output.
#include <cstdio>
#include <string>
#include <vector>

#include "app/UsageReport.h"
#include "platform/Environment.h"

int main(int argc, char** argv) {
    std::vector<std::string> arguments(argv + 1, argv + argc);
    if (!arguments.empty() && arguments.front() == "usage") arguments.erase(arguments.begin());
    std::string error;
    const auto options = vantrelle::parseUsageArguments(arguments, error);
    if (!options) {
        std::fprintf(stderr, "vantrelle-usage: %s\n%s", error.c_str(), vantrelle::usageSynopsis().c_str());
        return 2;
    }
    if (options->help) {
        std::fputs(vantrelle::usageSynopsis(options->grouping).c_str(), stdout);
        return 0;
    }
    const std::string report = vantrelle::usageReport(*options, vantrelle::ProcessEnvironment::shared());
    std::fwrite(report.data(), 1, report.size(), stdout);
    return 0;
}
