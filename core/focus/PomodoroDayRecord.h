#pragma once

#include <string>
#include <vector>

#include "platform/Date.h"
#include "platform/DefaultsStore.h"

namespace vantrelle {

// The day's completed focus blocks in the user defaults, under two keys per local calendar day:
// "<day>.log", the instants as seconds since 1970 (the record), and "<day>", the count that older
// versions wrote and read (kept written for them).
namespace PomodoroDayRecord {

// "pomodoro.completed.2026-3-7": year, month and day without zero padding.
[[nodiscard]] std::string dayKey(Date now);

// The instants of the day's blocks. A ".log" value that isn't all numbers falls back to the count,
// which becomes blocks every half hour from the start of the day.
[[nodiscard]] std::vector<Date> load(const DefaultsStore& defaults, Date now);
void save(DefaultsStore& defaults, Date now, const std::vector<Date>& sessions);

}  // namespace PomodoroDayRecord

}  // namespace vantrelle
