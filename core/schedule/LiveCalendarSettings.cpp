#include "schedule/LiveCalendarSettings.h"

namespace vantrelle {

LiveCalendarSettings::LiveCalendarSettings(CalendarPreferences& preferences, FolderCalendarSource& source,
                                           CalendarService& service, ReminderList& reminders)
    : m_preferences(preferences), m_source(source), m_service(service), m_reminders(reminders) {
    m_connection = m_preferences.changed.connect([this] { apply(); });
}

void LiveCalendarSettings::apply() {
    m_source.reconfigure(m_preferences.folderPaths(), m_preferences.addresses());
    m_service.reload();
    m_reminders.refresh();
}

}  // namespace vantrelle
