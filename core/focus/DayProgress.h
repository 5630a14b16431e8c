#pragma once

#include <cstdint>
#include <string>

#include "platform/Date.h"

namespace vantrelle {

enum class WorkdayPhase { unset, before, during, after };

// Where now stands in the workday. A workday whose end is before its start runs over midnight (a night
// shift): from the start on one day to the end on the next.
struct DayProgress {
    WorkdayPhase phase = WorkdayPhase::unset;
    Date start;              // the workday in question: the current one, else the next, else today's
    Date end;                // exclusive
    double fraction = 0;     // 0 before, 1 after, in between while it runs
    double secondsLeft = 0;  // to the end while it runs, to the start before it

    bool operator==(const DayProgress&) const = default;
};

// Minutes after local midnight, clamped to 0...1440; equal start and end mean no workday. Times are
// local wall-clock times, so a day with a clock change still starts and ends when the clock says.
[[nodiscard]] DayProgress dayProgressAt(Date now, std::int64_t startMinutes, std::int64_t endMinutes);

// "3 h 12 min left", "Starts in 45 min", "Workday over", "No workday set". Minutes are rounded up, so
// the last seconds still read "1 min left".
[[nodiscard]] std::string dayProgressHeadline(const DayProgress& progress);
// "09:00 – 18:00"; empty without a workday.
[[nodiscard]] std::string workdayHoursText(const DayProgress& progress);
// "62%", the fraction rounded down, so 100% means the day is really over.
[[nodiscard]] std::string dayProgressPercent(const DayProgress& progress);

}  // namespace vantrelle
