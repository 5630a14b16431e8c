#include "schedule/IcsTime.h"

#include <cmath>
#include <ctime>

namespace vantrelle::IcsTime {

namespace {

// Outside these years time_t arithmetic and libical's own tables stop being trustworthy; a file that
// names year 30000 is noise, not a meeting.
constexpr int kFirstYear = 1900;
constexpr int kLastYear = 9999;

std::optional<Date> localWallClock(const icaltimetype& time) {
    std::tm parts{};
    parts.tm_year = time.year - 1900;
    parts.tm_mon = time.month - 1;
    parts.tm_mday = time.day;
    if (!time.is_date) {
        parts.tm_hour = time.hour;
        parts.tm_min = time.minute;
        parts.tm_sec = time.second;
    }
    parts.tm_isdst = -1;  // let the zone decide, so a DST change day gets the right offset
    const std::time_t seconds = std::mktime(&parts);
    if (seconds == static_cast<std::time_t>(-1) && parts.tm_year != 69) return std::nullopt;
    return Date{static_cast<double>(seconds)};
}

}  // namespace

icaltimetype withZone(icaltimetype time, icalproperty* property, icalcomponent* calendar) {
    if (time.zone != nullptr || time.is_date || property == nullptr) return time;
    icalparameter* tzid = icalproperty_get_first_parameter(property, ICAL_TZID_PARAMETER);
    if (tzid == nullptr) return time;
    const char* name = icalparameter_get_tzid(tzid);
    if (name == nullptr) return time;
    icaltimezone* zone = calendar != nullptr ? icalcomponent_get_timezone(calendar, name) : nullptr;
    if (zone == nullptr) zone = icaltimezone_get_builtin_timezone(name);
    if (zone != nullptr) time.zone = zone;
    return time;
}

std::optional<Date> toDate(const icaltimetype& time) {
    if (icaltime_is_null_time(time) || !icaltime_is_valid_time(time)) return std::nullopt;
    if (time.year < kFirstYear || time.year > kLastYear || time.month < 1 || time.month > 12 ||
        time.day < 1 || time.day > 31) {
        return std::nullopt;
    }
    if (time.is_date || time.zone == nullptr) return localWallClock(time);
    return Date{static_cast<double>(icaltime_as_timet_with_zone(time, time.zone))};
}

icaltimetype addDays(icaltimetype time, int days) {
    icaltime_adjust(&time, days, 0, 0, 0);
    return time;
}

icaltimetype inZoneOf(icaltimetype time, const icaltimetype& like) {
    if (time.zone == nullptr && !time.is_date && like.zone != nullptr) time.zone = like.zone;
    return time;
}

icaltimetype wallTimeAt(Date date, const icaltimetype& like) {
    const auto seconds = static_cast<std::time_t>(std::floor(date.seconds));
    icaltimetype time;
    if (like.zone != nullptr) {
        time = icaltime_from_timet_with_zone(seconds, like.is_date, like.zone);
    } else {
        std::tm parts{};
        ::localtime_r(&seconds, &parts);
        time = icaltime_null_time();
        time.year = parts.tm_year + 1900;
        time.month = parts.tm_mon + 1;
        time.day = parts.tm_mday;
        time.hour = like.is_date ? 0 : parts.tm_hour;
        time.minute = like.is_date ? 0 : parts.tm_min;
        time.second = like.is_date ? 0 : parts.tm_sec;
        time.is_date = like.is_date;
    }
    time.zone = like.zone;
    return time;
}

}  // namespace vantrelle::IcsTime
