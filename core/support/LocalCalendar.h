#pragma once

#include <string>

#include "platform/Date.h"

namespace vantrelle {

// Local-calendar arithmetic in the process time zone.
namespace LocalCalendar {

[[nodiscard]] Date startOfDay(Date date);
// The start of the day `days` calendar days from the day of `date` (across clock changes too).
[[nodiscard]] Date addDays(Date startOfDay, int days);
// `date` with minutes, seconds and fractions removed.
[[nodiscard]] Date startOfHour(Date date);
// "yyyy-MM-dd".
[[nodiscard]] std::string dayKey(Date date);
// "HH:mm", on a 24-hour clock.
[[nodiscard]] std::string timeOfDay(Date date);

}  // namespace LocalCalendar

}  // namespace vantrelle
