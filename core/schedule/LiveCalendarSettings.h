#pragma once

#include "schedule/CalendarPreferences.h"
#include "schedule/CalendarService.h"
#include "schedule/FolderCalendarSource.h"
#include "schedule/ReminderList.h"

namespace vantrelle {

// Applies the calendar settings the moment they change, with no restart: the folders are watched
// anew, events and to-dos are read again and the heads-up rules run over the new list.
class LiveCalendarSettings {
public:
    LiveCalendarSettings(CalendarPreferences& preferences, FolderCalendarSource& source,
                         CalendarService& service, ReminderList& reminders);

private:
    void apply();

    CalendarPreferences& m_preferences;
    FolderCalendarSource& m_source;
    CalendarService& m_service;
    ReminderList& m_reminders;
    Connection m_connection;
};

}  // namespace vantrelle
