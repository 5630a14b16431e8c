#pragma once

#include <cstdint>
#include <string>

#include "platform/Date.h"

namespace vantrelle {

// Local-calendar arithmetic in the process time zone.
namespace LocalCalendar {

[[nodiscard]] Date startOfDay(Date date);
// The start of the day `days` calendar days from the day of `date` (across clock changes too).
[[nodiscard]] Date addDays(Date startOfDay, int days);
// `minutes` after the local midnight that starts the day of `day`, on the wall clock: on a day the clocks
// change, 09:00 is still 09:00.
[[nodiscard]] Date atMinutes(Date day, std::int64_t minutes);
// The local midnight that starts the Monday of `date`'s week.
[[nodiscard]] Date startOfMondayWeek(Date date);
// The first local midnight of `date`'s month, `monthsAhead` months on (negative: back).
[[nodiscard]] Date startOfMonth(Date date, int monthsAhead = 0);
[[nodiscard]] Date startOfYear(Date date);
// `date` with minutes, seconds and fractions removed.
[[nodiscard]] Date startOfHour(Date date);
// "yyyy-MM-dd".
[[nodiscard]] std::string dayKey(Date date);
// "HH:mm", on a 24-hour clock.
[[nodiscard]] std::string timeOfDay(Date date);

}  // namespace LocalCalendar

}  // namespace vantrelle
