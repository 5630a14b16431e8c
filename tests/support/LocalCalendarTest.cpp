// Days and hours of the local calendar where the clock jumps: zones are given as POSIX rules, so the
// tests need no time zone database and the rules can't change under them.
#include <gtest/gtest.h>

#include <ostream>
#include <span>

#include "agents/IsoDate.h"
#include "fakes/ScopedTimeZone.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

// Failing rows show UTC times, as the rows are written.
static void PrintTo(Date date, std::ostream* out) {
    *out << formatIsoDate(date);
}

namespace {

constexpr const char* kBerlin = "CET-1CEST,M3.5.0,M10.5.0/3";  // 02:00 → 03:00 in March, back in October
constexpr const char* kAdelaide = "ACST-9:30ACDT,M10.1.0,M4.1.0/3";   // half-hour offset, southern summer
constexpr const char* kSantiago = "<-04>4<-03>,M9.1.6/24,M4.1.6/24";  // the clock jumps at midnight

Date at(const char* utc) {
    return parseIsoDate(utc).value();
}

// One instant and what the calendar makes of it.
struct Instant {
    const char* name;
    const char* at;
    const char* startOfDay;
    const char* startOfHour;
    const char* dayKey;
};

// The start of a day, and the start of the day so many days on.
struct Step {
    const char* name;
    const char* from;
    int days;
    const char* to;
};

void check(const char* zone, std::span<const Instant> instants, std::span<const Step> steps) {
    testing::ScopedTimeZone tz(zone);
    for (const Instant& row : instants) {
        SCOPED_TRACE(row.name);
        EXPECT_EQ(LocalCalendar::startOfDay(at(row.at)), at(row.startOfDay));
        EXPECT_EQ(LocalCalendar::startOfHour(at(row.at)), at(row.startOfHour));
        EXPECT_EQ(LocalCalendar::dayKey(at(row.at)), row.dayKey);
    }
    for (const Step& step : steps) {
        SCOPED_TRACE(step.name);
        EXPECT_EQ(LocalCalendar::addDays(at(step.from), step.days), at(step.to));
    }
}

TEST(LocalCalendar, ClocksGoingForwardAnHourMakeA23HourDay) {
    const Instant instants[] = {
        {"just after the jump", "2030-03-31T01:00:00Z", "2030-03-30T23:00:00Z", "2030-03-31T01:00:00Z",
         "2030-03-31"},
        {"last second of the short day", "2030-03-31T21:59:59.500Z", "2030-03-30T23:00:00Z",
         "2030-03-31T21:00:00Z", "2030-03-31"},
        {"midnight after it", "2030-03-31T22:00:00Z", "2030-03-31T22:00:00Z", "2030-03-31T22:00:00Z",
         "2030-04-01"},
    };
    const Step steps[] = {
        {"over the short day", "2030-03-30T23:00:00Z", 1, "2030-03-31T22:00:00Z"},
        {"back over it", "2030-03-31T22:00:00Z", -2, "2030-03-29T23:00:00Z"},
    };
    check(kBerlin, instants, steps);
}

TEST(LocalCalendar, ClocksGoingBackAnHourMakeA25HourDayAndRepeatAnHour) {
    const Instant instants[] = {
        {"02:30 the first time", "2030-10-27T00:30:00Z", "2030-10-26T22:00:00Z", "2030-10-27T00:00:00Z",
         "2030-10-27"},
        {"02:30 the second time", "2030-10-27T01:30:00Z", "2030-10-26T22:00:00Z", "2030-10-27T01:00:00Z",
         "2030-10-27"},
        {"midnight after it", "2030-10-27T23:00:00Z", "2030-10-27T23:00:00Z", "2030-10-27T23:00:00Z",
         "2030-10-28"},
    };
    const Step steps[] = {
        {"over the long day", "2030-10-26T22:00:00Z", 1, "2030-10-27T23:00:00Z"},
    };
    check(kBerlin, instants, steps);
}

TEST(LocalCalendar, HalfHourOffsetsAcrossBothChanges) {
    const Instant instants[] = {
        {"hours start at half past UTC", "2030-06-15T05:10:00Z", "2030-06-14T14:30:00Z",
         "2030-06-15T04:30:00Z", "2030-06-15"},
        {"just after the spring jump", "2030-10-05T16:30:00Z", "2030-10-05T14:30:00Z", "2030-10-05T16:30:00Z",
         "2030-10-06"},
        {"02:30 the second time in autumn", "2030-04-06T17:00:00Z", "2030-04-06T13:30:00Z",
         "2030-04-06T16:30:00Z", "2030-04-07"},
    };
    const Step steps[] = {
        {"over the short day", "2030-10-05T14:30:00Z", 1, "2030-10-06T13:30:00Z"},
        {"over the long day", "2030-04-06T13:30:00Z", 1, "2030-04-07T14:30:00Z"},
    };
    check(kAdelaide, instants, steps);
}

TEST(LocalCalendar, ADayWhoseMidnightIsSkippedStartsAtOne) {
    const Instant instants[] = {
        {"noon of the day without a midnight", "2030-09-08T12:00:00Z", "2030-09-08T04:00:00Z",
         "2030-09-08T12:00:00Z", "2030-09-08"},
        {"last second before the jump", "2030-09-08T03:59:59Z", "2030-09-07T04:00:00Z",
         "2030-09-08T03:00:00Z", "2030-09-07"},
        {"23:30 the first time", "2030-04-07T02:30:00Z", "2030-04-06T03:00:00Z", "2030-04-07T02:00:00Z",
         "2030-04-06"},
        {"23:30 the second time", "2030-04-07T03:30:00Z", "2030-04-06T03:00:00Z", "2030-04-07T03:00:00Z",
         "2030-04-06"},
        {"midnight after the repeated hour", "2030-04-07T04:00:00Z", "2030-04-07T04:00:00Z",
         "2030-04-07T04:00:00Z", "2030-04-07"},
    };
    const Step steps[] = {
        {"onto the day without a midnight", "2030-09-07T04:00:00Z", 1, "2030-09-08T04:00:00Z"},
        {"off it", "2030-09-08T04:00:00Z", 1, "2030-09-09T03:00:00Z"},
        {"over the 25-hour day", "2030-04-06T03:00:00Z", 1, "2030-04-07T04:00:00Z"},
        {"back over it", "2030-04-07T04:00:00Z", -1, "2030-04-06T03:00:00Z"},
    };
    check(kSantiago, instants, steps);
}

}  // namespace
}  // namespace vantrelle
