#include "schedule/CalendarDemo.h"

#include <cmath>

#include "support/LocalCalendar.h"

namespace vantrelle::CalendarDemo {

namespace {

CalendarEvent event(std::string id, std::string title, Date start, double minutes, std::string calendar,
                    std::string location = {}, std::string notes = {}) {
    CalendarEvent result;
    result.identifier = "demo-" + id;
    result.title = std::move(title);
    result.calendar = std::move(calendar);
    result.start = start;
    result.end = start + minutes * 60.0;
    result.location = std::move(location);
    result.notes = std::move(notes);
    return result;
}

}  // namespace

std::vector<CalendarEvent> events(Date now) {
    const Date day = LocalCalendar::startOfDay(now);
    // Whole minutes, so the list reads like a real calendar.
    const Date soon = Date{std::ceil((now.seconds + 8 * 60) / 60.0) * 60.0};
    auto offsite = event("offsite", "Team offsite week", day, 24 * 60, "Work");
    offsite.allDay = true;
    offsite.end = LocalCalendar::addDays(day, 1);
    auto review =
        event("review", "Design review", soon, 45, "Work", "Room 4", "Join: https://zoom.us/j/5550123456");
    auto budget = event("budget", "Budget sync", soon + 3600.0, 30, "Work",
                        "https://teams.microsoft.com/l/meetup-join/demo");
    budget.attendees = {Attendee{"you@example.com", "You", ParticipantStatus::declined, true}};
    return {
        offsite,
        review,
        budget,
        event("pairing", "Pairing with Maya", soon + 2 * 3600.0, 60, "Work",
              "https://meet.google.com/abc-defg-hij"),
        event("gym", "Gym", soon + 5 * 3600.0, 60, "Personal"),
    };
}

std::vector<CalendarTodo> todos(Date now) {
    const Date day = LocalCalendar::startOfDay(now);
    auto todo = [&](std::string id, std::string title, double hour, bool done) {
        CalendarTodo result;
        result.identifier = "demo-" + id;
        result.title = std::move(title);
        result.calendar = "Reminders";
        result.due = day + hour * 3600.0;
        result.completed = done;
        return result;
    };
    return {todo("invoice", "Send the March invoice", 10, true),
            todo("pr", "Review Maya's pull request", 14, false),
            todo("dentist", "Call the dentist", 17, false)};
}

}  // namespace vantrelle::CalendarDemo
