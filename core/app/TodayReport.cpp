#include "app/TodayReport.h"

#include <cstdio>
#include <ctime>
#include <nlohmann/json.hpp>

#include "agents/IsoDate.h"
#include "schedule/CalendarDay.h"
#include "schedule/MeetingLink.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

namespace {

nlohmann::json eventJson(const CalendarEvent& event) {
    const auto link = MeetingLink::url(event);
    return {
        {"start", formatIsoDate(event.start)},
        {"end", formatIsoDate(event.end)},
        {"title", event.title},
        {"calendar", event.calendar},
        {"allDay", event.allDay},
        {"declined", isDeclined(event)},
        {"joinLink", link ? nlohmann::json(*link) : nlohmann::json(nullptr)},
        {"service",
         link ? nlohmann::json(std::string(MeetingLink::serviceName(*link))) : nlohmann::json(nullptr)},
    };
}

std::string eventLine(const CalendarEvent& event) {
    std::string line = event.allDay ? "all day    " : CalendarDay::timeRange(event) + "  ";
    line += event.title.empty() ? "(no title)" : event.title;
    if (!event.calendar.empty()) line += "  [" + event.calendar + "]";
    if (isDeclined(event)) line += "  declined";
    if (auto link = MeetingLink::url(event))
        line += "  " + std::string(MeetingLink::serviceName(*link)) + ": " + *link;
    return line + "\n";
}

}  // namespace

const char* todaySynopsis() {
    return "usage: vantrelle today [--json] [--calendars DIR...] [--now ISO-8601] [--tz ZONE]\n"
           "  --json        one JSON object instead of lines\n"
           "  --calendars   read these folders of .ics files instead of your calendars\n"
           "  --now         the moment to report for, e.g. 2026-11-03T08:00:00Z\n"
           "  --tz          the time zone that decides the day and the clock times, e.g. Europe/Berlin\n";
}

std::optional<TodayOptions> parseTodayArguments(const std::vector<std::string>& arguments,
                                                std::string& error) {
    TodayOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        const bool hasValue = i + 1 < arguments.size() && arguments[i + 1].rfind("--", 0) != 0;
        if (argument == "--help" || argument == "-h") {
            options.help = true;
            return options;
        }
        if (argument == "--json") {
            options.json = true;
        } else if (argument == "--calendars") {
            if (!hasValue) {
                error = "--calendars needs at least one folder";
                return std::nullopt;
            }
            while (i + 1 < arguments.size() && arguments[i + 1].rfind("--", 0) != 0)
                options.calendars.emplace_back(arguments[++i]);
        } else if (argument == "--now" || argument == "--tz") {
            if (!hasValue) {
                error = argument + " needs a value";
                return std::nullopt;
            }
            const std::string& value = arguments[++i];
            if (argument == "--tz") {
                options.timeZone = value;
            } else if (auto date = parseIsoDate(value)) {
                options.now = date;
            } else {
                error = "--now needs an ISO 8601 date-time such as 2026-11-03T08:00:00Z, not " + value;
                return std::nullopt;
            }
        } else {
            error = "unknown option " + argument;
            return std::nullopt;
        }
    }
    return options;
}

std::string todayReport(const std::vector<CalendarEvent>& arranged, Date now, bool json) {
    if (json) {
        nlohmann::json events = nlohmann::json::array();
        for (const auto& event : arranged) events.push_back(eventJson(event));
        nlohmann::json report = {
            {"day", LocalCalendar::dayKey(now)}, {"now", formatIsoDate(now)}, {"events", events}};
        return report.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
    }
    std::string text = LocalCalendar::dayKey(now) + "\n";
    if (arranged.empty()) return text + "no more events today\n";
    for (const auto& event : arranged) text += eventLine(event);
    return text;
}

}  // namespace vantrelle
