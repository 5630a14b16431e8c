#pragma once

#include <ctime>
#include <string>
#include <string_view>

#include "platform/Date.h"

namespace vantrelle::testing {

// A VCALENDAR around the given components, with CRLF line ends as calendar programs write them.
inline std::string calendar(std::string_view body, std::string_view extraHeader = "") {
    std::string text = "BEGIN:VCALENDAR\nVERSION:2.0\nPRODID:-//Vantrelle tests//EN\n";
    text += extraHeader;
    text += body;
    text += "END:VCALENDAR\n";
    std::string crlf;
    for (char c : text) {
        if (c == '\n') crlf += '\r';
        crlf += c;
    }
    return crlf;
}

// The parts of a wall-clock time, the zone left to the caller.
inline std::tm wallClock(int year, int month, int day, int hour, int minute) {
    std::tm parts{};
    parts.tm_year = year - 1900;
    parts.tm_mon = month - 1;
    parts.tm_mday = day;
    parts.tm_hour = hour;
    parts.tm_min = minute;
    parts.tm_isdst = -1;
    return parts;
}

// Local wall-clock time in the process's zone.
inline Date localTime(int year, int month, int day, int hour = 0, int minute = 0) {
    auto parts = wallClock(year, month, day, hour, minute);
    return Date{static_cast<double>(std::mktime(&parts))};
}

inline Date utcTime(int year, int month, int day, int hour = 0, int minute = 0) {
    auto parts = wallClock(year, month, day, hour, minute);
    return Date{static_cast<double>(::timegm(&parts))};
}

// The VTIMEZONE New York's calendar programs write, under a name no zone database knows, so the
// test proves the file's own definition is used.
inline constexpr std::string_view kCustomNewYork =
    "BEGIN:VTIMEZONE\nTZID:Office Time\n"
    "BEGIN:STANDARD\nDTSTART:19701101T020000\nRRULE:FREQ=YEARLY;BYMONTH=11;BYDAY=1SU\n"
    "TZOFFSETFROM:-0400\nTZOFFSETTO:-0500\nEND:STANDARD\n"
    "BEGIN:DAYLIGHT\nDTSTART:19700308T020000\nRRULE:FREQ=YEARLY;BYMONTH=3;BYDAY=2SU\n"
    "TZOFFSETFROM:-0500\nTZOFFSETTO:-0400\nEND:DAYLIGHT\nEND:VTIMEZONE\n";

}  // namespace vantrelle::testing
