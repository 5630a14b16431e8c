#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "platform/Date.h"

namespace vantrelle {

// An attendee's answer to an invitation (iCalendar's PARTSTAT).
enum class ParticipantStatus { unknown, needsAction, accepted, declined, tentative, delegated };

struct Attendee {
    std::string address;  // without "mailto:", lower case
    std::string name;
    ParticipantStatus status = ParticipantStatus::unknown;
    bool isCurrentUser = false;  // one of the user's own addresses

    bool operator==(const Attendee&) const = default;
};

// One occurrence of a calendar event. Each instance of a recurring event shares the identifier of
// its series, so the start tells instances apart.
struct CalendarEvent {
    std::string identifier;  // the UID
    std::string title;
    std::string calendar;  // the calendar's display name
    std::string location;
    std::string notes;  // DESCRIPTION
    std::string url;    // the URL property
    Date start;
    Date end;
    bool allDay = false;
    std::vector<Attendee> attendees;
    std::filesystem::path file;  // where it was read from

    bool operator==(const CalendarEvent&) const = default;
};

// A to-do (VTODO) with its due date, for the day's reminders.
struct CalendarTodo {
    std::string identifier;
    std::string title;
    std::string calendar;
    Date due;
    bool dueIsDate = false;  // due some time that day rather than at a time
    bool completed = false;
    std::filesystem::path file;

    bool operator==(const CalendarTodo&) const = default;
};

// True when the user's own attendee entry declined. An event without attendees is never declined.
[[nodiscard]] inline bool isDeclined(const CalendarEvent& event) {
    for (const auto& attendee : event.attendees) {
        if (attendee.isCurrentUser) return attendee.status == ParticipantStatus::declined;
    }
    return false;
}

}  // namespace vantrelle
