#include "agents/IsoDate.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdint>

namespace vantrelle {

namespace {

bool digits(std::string_view text, std::size_t at, std::size_t count, int& value) {
    if (at + count > text.size()) return false;
    value = 0;
    for (std::size_t i = at; i < at + count; ++i) {
        const char c = text[i];
        if (c < '0' || c > '9') return false;
        value = value * 10 + (c - '0');
    }
    return true;
}

// Days from 1970-01-01 to the given civil date in the proleptic Gregorian calendar.
std::int64_t daysFromCivil(std::int64_t y, unsigned m, unsigned d) {
    y -= m <= 2;
    const std::int64_t era = (y >= 0 ? y : y - 399) / 400;
    const auto yoe = static_cast<unsigned>(y - era * 400);
    const unsigned doy = (153 * (m > 2 ? m - 3 : m + 9) + 2) / 5 + d - 1;
    const unsigned doe = yoe * 365 + yoe / 4 - yoe / 100 + doy;
    return era * 146097 + static_cast<std::int64_t>(doe) - 719468;
}

bool isLeap(int y) {
    return (y % 4 == 0 && y % 100 != 0) || y % 400 == 0;
}

int daysInMonth(int y, int m) {
    static constexpr int kDays[] = {31, 28, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    return m == 2 && isLeap(y) ? 29 : kDays[m - 1];
}

}  // namespace

std::optional<Date> parseIsoDate(std::string_view text) {
    int year = 0, month = 0, day = 0, hour = 0, minute = 0, second = 0;
    if (!digits(text, 0, 4, year) || text.size() < 19 || text[4] != '-' || !digits(text, 5, 2, month) ||
        text[7] != '-' || !digits(text, 8, 2, day) || (text[10] != 'T' && text[10] != 't') ||
        !digits(text, 11, 2, hour) || text[13] != ':' || !digits(text, 14, 2, minute) || text[16] != ':' ||
        !digits(text, 17, 2, second)) {
        return std::nullopt;
    }
    if (month < 1 || month > 12 || day < 1 || day > daysInMonth(year, month) || hour > 23 || minute > 59 ||
        second > 60) {
        return std::nullopt;
    }
    std::size_t at = 19;
    double fraction = 0;
    if (at < text.size() && text[at] == '.') {
        ++at;
        const std::size_t start = at;
        int milliseconds = 0;
        while (at < text.size() && text[at] >= '0' && text[at] <= '9') {
            if (at - start < 3) milliseconds = milliseconds * 10 + (text[at] - '0');
            ++at;
        }
        const std::size_t count = at - start;
        if (count == 0) return std::nullopt;
        for (std::size_t i = count; i < 3; ++i) milliseconds *= 10;
        fraction = milliseconds / 1000.0;
    }
    if (at >= text.size()) return std::nullopt;
    int offsetSeconds = 0;
    if (text[at] == 'Z' || text[at] == 'z') {
        ++at;
    } else if (text[at] == '+' || text[at] == '-') {
        const int sign = text[at] == '-' ? -1 : 1;
        int offsetHours = 0, offsetMinutes = 0;
        if (!digits(text, at + 1, 2, offsetHours)) return std::nullopt;
        std::size_t next = at + 3;
        if (next < text.size() && text[next] == ':') ++next;
        if (!digits(text, next, 2, offsetMinutes) || offsetHours > 23 || offsetMinutes > 59)
            return std::nullopt;
        offsetSeconds = sign * (offsetHours * 3600 + offsetMinutes * 60);
        at = next + 2;
    } else {
        return std::nullopt;
    }
    if (at != text.size()) return std::nullopt;
    const std::int64_t days = daysFromCivil(year, static_cast<unsigned>(month), static_cast<unsigned>(day));
    const std::int64_t seconds =
        days * 86400 + std::int64_t{hour} * 3600 + std::int64_t{minute} * 60 + second - offsetSeconds;
    return Date{static_cast<double>(seconds) + fraction};
}

std::string formatIsoDate(Date date) {
    const double whole = std::floor(date.seconds);
    auto milliseconds = static_cast<int>(std::llround((date.seconds - whole) * 1000));
    auto seconds = static_cast<std::int64_t>(whole);
    if (milliseconds >= 1000) {
        milliseconds -= 1000;
        ++seconds;
    }
    std::int64_t days = seconds >= 0 ? seconds / 86400 : (seconds - 86399) / 86400;
    const std::int64_t secondOfDay = seconds - days * 86400;
    // Civil date from days since 1970-01-01.
    days += 719468;
    const std::int64_t era = (days >= 0 ? days : days - 146096) / 146097;
    const auto doe = static_cast<unsigned>(days - era * 146097);
    const unsigned yoe = (doe - doe / 1460 + doe / 36524 - doe / 146096) / 365;
    const std::int64_t y = static_cast<std::int64_t>(yoe) + era * 400;
    const unsigned doy = doe - (365 * yoe + yoe / 4 - yoe / 100);
    const unsigned mp = (5 * doy + 2) / 153;
    const unsigned d = doy - (153 * mp + 2) / 5 + 1;
    const unsigned m = mp < 10 ? mp + 3 : mp - 9;
    return fmt::format("{:04d}-{:02d}-{:02d}T{:02d}:{:02d}:{:02d}.{:03d}Z", y + (m <= 2), m, d,
                       secondOfDay / 3600, secondOfDay / 60 % 60, secondOfDay % 60, milliseconds);
}

}  // namespace vantrelle
