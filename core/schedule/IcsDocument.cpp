#include "schedule/IcsDocument.h"

#include <libical/ical.h>

#include <mutex>
#include <string>

#include "schedule/IcsComponent.h"
#include "schedule/IcsTime.h"

namespace vantrelle {

namespace {

// libical can treat some of its internal errors as fatal in debug builds; a user's file is read as far
// as it goes and its errors are counted and logged instead.
void makeErrorsNonFatal() {
    static std::once_flag once;
    std::call_once(once, [] { icalerror_set_errors_are_fatal(0); });
}

int countErrors(icalcomponent* component) {
    int errors = icalcomponent_count_properties(component, ICAL_XLICERROR_PROPERTY);
    for (icalcomponent* child = icalcomponent_get_first_component(component, ICAL_ANY_COMPONENT);
         child != nullptr; child = icalcomponent_get_next_component(component, ICAL_ANY_COMPONENT)) {
        errors += countErrors(child);
    }
    return errors;
}

std::vector<icalcomponent*> calendarsOf(icalcomponent* root) {
    if (icalcomponent_isa(root) == ICAL_VCALENDAR_COMPONENT) return {root};
    std::vector<icalcomponent*> calendars;
    if (icalcomponent_isa(root) != ICAL_XROOT_COMPONENT) return calendars;
    for (icalcomponent* child = icalcomponent_get_first_component(root, ICAL_VCALENDAR_COMPONENT);
         child != nullptr; child = icalcomponent_get_next_component(root, ICAL_VCALENDAR_COMPONENT)) {
        calendars.push_back(child);
    }
    return calendars;
}

bool isCompleted(icalcomponent* todo) {
    if (icalcomponent_get_status(todo) == ICAL_STATUS_COMPLETED) return true;
    return icalcomponent_get_first_property(todo, ICAL_COMPLETED_PROPERTY) != nullptr;
}

}  // namespace

std::unique_ptr<IcsDocument> IcsDocument::parse(std::string_view text, std::string& problem) {
    makeErrorsNonFatal();
    if (text.find('\0') != std::string_view::npos) {
        problem = "holds a NUL byte";
        return nullptr;
    }
    const std::string terminated(text);
    icalcomponent* root = icalparser_parse_string(terminated.c_str());
    if (root == nullptr) {
        problem = "no iCalendar data";
        return nullptr;
    }
    auto calendars = calendarsOf(root);
    if (calendars.empty()) {
        icalcomponent_free(root);
        problem = "no VCALENDAR";
        return nullptr;
    }
    return std::unique_ptr<IcsDocument>(new IcsDocument(root, std::move(calendars), countErrors(root)));
}

IcsDocument::IcsDocument(icalcomponent* root, std::vector<icalcomponent*> calendars, int errors)
    : m_root(root), m_calendars(std::move(calendars)), m_errors(errors) {}

IcsDocument::~IcsDocument() {
    icalcomponent_free(m_root);
}

std::string IcsDocument::calendarName() const {
    for (icalcomponent* calendar : m_calendars) {
        for (icalproperty* property = icalcomponent_get_first_property(calendar, ICAL_X_PROPERTY);
             property != nullptr; property = icalcomponent_get_next_property(calendar, ICAL_X_PROPERTY)) {
            const char* name = icalproperty_get_x_name(property);
            const char* value = icalproperty_get_x(property);
            if (name != nullptr && value != nullptr && std::string_view(name) == "X-WR-CALNAME") return value;
        }
    }
    return {};
}

void IcsDocument::appendEvents(Date from, Date to, const EventReading& reading,
                               std::vector<CalendarEvent>& out) const {
    for (icalcomponent* calendar : m_calendars)
        IcsComponent::appendOccurrences(calendar, from, to, reading, out);
}

void IcsDocument::appendTodos(Date from, Date to, const EventReading& reading,
                              std::vector<CalendarTodo>& out) const {
    for (icalcomponent* calendar : m_calendars) {
        for (icalcomponent* todo = icalcomponent_get_first_component(calendar, ICAL_VTODO_COMPONENT);
             todo != nullptr; todo = icalcomponent_get_next_component(calendar, ICAL_VTODO_COMPONENT)) {
            icalproperty* dueProperty = icalcomponent_get_first_property(todo, ICAL_DUE_PROPERTY);
            if (dueProperty == nullptr) continue;
            const icaltimetype due =
                IcsTime::withZone(icalproperty_get_due(dueProperty), dueProperty, calendar);
            const auto dueDate = IcsTime::toDate(due);
            if (!dueDate || *dueDate < from || *dueDate >= to) continue;
            CalendarTodo item;
            item.identifier = IcsComponent::text(icalcomponent_get_uid(todo));
            item.title = IcsComponent::text(icalcomponent_get_summary(todo));
            item.calendar = reading.calendar;
            item.due = *dueDate;
            item.dueIsDate = due.is_date != 0;
            item.completed = isCompleted(todo);
            item.file = reading.file;
            out.push_back(std::move(item));
        }
    }
}

}  // namespace vantrelle
