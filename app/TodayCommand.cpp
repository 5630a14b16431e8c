#include "TodayCommand.h"

#include <cstdio>
#include <cstdlib>
#include <ctime>
#include <filesystem>
#include <string>
#include <vector>

#include "app/TodayReport.h"
#include "platform/Clock.h"
#include "platform/Environment.h"
#include "schedule/CalendarDay.h"
#include "schedule/CalendarLibrary.h"
#include "schedule/CalendarSettings.h"
#include "support/AppPaths.h"
#include "support/JsonDefaultsStore.h"
#include "support/LocalCalendar.h"

namespace {

// TZ with a name the system doesn't know silently means UTC; a typo should say so instead.
bool knownZone(const std::string& zone) {
    if (zone.empty() || zone.find("..") != std::string::npos) return false;
    const char* tzdir = std::getenv("TZDIR");
    std::error_code error;
    return std::filesystem::is_regular_file(
        std::filesystem::path(tzdir ? tzdir : "/usr/share/zoneinfo") / zone, error);
}

}  // namespace

int runTodayCommand(int argc, char** argv) {
    using namespace vantrelle;
    std::vector<std::string> arguments(argv + 2, argv + argc);
    std::string error;
    const auto options = parseTodayArguments(arguments, error);
    if (!options) {
        std::fprintf(stderr, "vantrelle today: %s\n%s", error.c_str(), todaySynopsis());
        return 2;
    }
    if (options->help) {
        std::fputs(todaySynopsis(), stdout);
        return 0;
    }
    if (options->timeZone) {
        if (!knownZone(*options->timeZone)) {
            std::fprintf(stderr, "vantrelle today: unknown time zone %s\n", options->timeZone->c_str());
            return 2;
        }
        ::setenv("TZ", options->timeZone->c_str(), 1);
        ::tzset();
    }
    const auto paths = AppPaths::fromEnvironment(ProcessEnvironment::shared());
    JsonDefaultsStore defaults(paths.defaultsFile());
    CalendarLibrary library(
        options->calendars.empty() ? CalendarSettings::folders(defaults, paths.dataHome) : options->calendars,
        CalendarSettings::userAddresses(defaults));
    library.refresh();
    const Date now = options->now.value_or(SystemClock::shared().now());
    const Date from = LocalCalendar::startOfDay(now);
    auto events = library.events(from, LocalCalendar::addDays(from, 1));
    CalendarDay::sortForReading(events);
    const std::string report = todayReport(CalendarDay::arrange(std::move(events), now), now, options->json);
    std::fwrite(report.data(), 1, report.size(), stdout);
    return 0;
}
