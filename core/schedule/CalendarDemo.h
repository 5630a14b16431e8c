#pragma once

#include <vector>

#include "schedule/CalendarEvent.h"

namespace vantrelle::CalendarDemo {

// A believable day around `now` for demo runs and screenshots: an all-day event, a meeting about to
// start with a Zoom link, one declined, and a few later with other services.
[[nodiscard]] std::vector<CalendarEvent> events(Date now);

// Reminders due today, one of them done.
[[nodiscard]] std::vector<CalendarTodo> todos(Date now);

}  // namespace vantrelle::CalendarDemo
