#include "schedule/IcsComponent.h"

#include <algorithm>
#include <cctype>
#include <cmath>
#include <map>
#include <set>

#include "schedule/IcsTime.h"

namespace vantrelle::IcsComponent {

namespace {

// A rule is walked from the window (or its start) at most this many steps: enough for a minutely
// meeting across a whole day, and a bound on what a hostile file can cost.
constexpr int kMaxSteps = 4000;

struct Span {
    icaltimetype start;
    int allDayDays = 0;       // all-day events: how many calendar days they cover
    double timedSeconds = 0;  // timed events: their length
};

std::string lowerAddress(std::string value) {
    std::transform(value.begin(), value.end(), value.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    constexpr std::string_view scheme = "mailto:";
    if (value.rfind(scheme, 0) == 0) value.erase(0, scheme.size());
    return value;
}

ParticipantStatus statusOf(icalproperty* attendee) {
    icalparameter* parameter = icalproperty_get_first_parameter(attendee, ICAL_PARTSTAT_PARAMETER);
    if (parameter == nullptr) return ParticipantStatus::unknown;
    switch (icalparameter_get_partstat(parameter)) {
        case ICAL_PARTSTAT_NEEDSACTION:
            return ParticipantStatus::needsAction;
        case ICAL_PARTSTAT_ACCEPTED:
            return ParticipantStatus::accepted;
        case ICAL_PARTSTAT_DECLINED:
            return ParticipantStatus::declined;
        case ICAL_PARTSTAT_TENTATIVE:
            return ParticipantStatus::tentative;
        case ICAL_PARTSTAT_DELEGATED:
            return ParticipantStatus::delegated;
        default:
            return ParticipantStatus::unknown;
    }
}

std::vector<Attendee> attendeesOf(icalcomponent* event, const std::vector<std::string>& userAddresses) {
    std::vector<Attendee> attendees;
    bool userFound = false;
    for (icalproperty* property = icalcomponent_get_first_property(event, ICAL_ATTENDEE_PROPERTY);
         property != nullptr; property = icalcomponent_get_next_property(event, ICAL_ATTENDEE_PROPERTY)) {
        Attendee attendee;
        attendee.address = lowerAddress(text(icalproperty_get_attendee(property)));
        if (icalparameter* cn = icalproperty_get_first_parameter(property, ICAL_CN_PARAMETER)) {
            attendee.name = text(icalparameter_get_cn(cn));
        }
        attendee.status = statusOf(property);
        // Only the first entry with the user's address speaks for the user.
        if (!userFound &&
            std::find(userAddresses.begin(), userAddresses.end(), attendee.address) != userAddresses.end()) {
            attendee.isCurrentUser = userFound = true;
        }
        attendees.push_back(std::move(attendee));
    }
    return attendees;
}

std::string urlOf(icalcomponent* event) {
    icalproperty* property = icalcomponent_get_first_property(event, ICAL_URL_PROPERTY);
    return property != nullptr ? text(icalproperty_get_url(property)) : std::string();
}

CalendarEvent describe(icalcomponent* event, const EventReading& reading) {
    CalendarEvent result;
    result.identifier = text(icalcomponent_get_uid(event));
    result.title = text(icalcomponent_get_summary(event));
    result.calendar = reading.calendar;
    result.location = text(icalcomponent_get_location(event));
    result.notes = text(icalcomponent_get_description(event));
    result.url = urlOf(event);
    result.attendees = attendeesOf(event, reading.userAddresses);
    result.file = reading.file;
    return result;
}

icaltimetype zonedProperty(icalcomponent* event, icalproperty_kind kind, icalcomponent* calendar,
                           icaltimetype (*get)(const icalproperty*)) {
    icalproperty* property = icalcomponent_get_first_property(event, kind);
    if (property == nullptr) return icaltime_null_time();
    return IcsTime::withZone(get(property), property, calendar);
}

std::optional<Span> spanOf(icalcomponent* event, icalcomponent* calendar) {
    Span span;
    span.start = zonedProperty(event, ICAL_DTSTART_PROPERTY, calendar, icalproperty_get_dtstart);
    const auto start = IcsTime::toDate(span.start);
    if (!start) return std::nullopt;
    icaltimetype end = zonedProperty(event, ICAL_DTEND_PROPERTY, calendar, icalproperty_get_dtend);
    if (icaltime_is_null_time(end)) {
        if (icalproperty* duration = icalcomponent_get_first_property(event, ICAL_DURATION_PROPERTY)) {
            end = icaltime_add(span.start, icalproperty_get_duration(duration));
        } else if (span.start.is_date) {
            end = IcsTime::addDays(span.start, 1);
        } else {
            end = span.start;
        }
    }
    const double seconds = std::max(0.0, IcsTime::toDate(end).value_or(*start) - *start);
    if (span.start.is_date) {
        // Whole days, read off the local midnights, so a DST change inside the span doesn't matter.
        span.allDayDays = std::max(1, static_cast<int>(std::lround(seconds / 86400.0)));
    } else {
        span.timedSeconds = seconds;
    }
    return span;
}

class Expansion {
public:
    Expansion(icalcomponent* calendar, Date from, Date to) : m_calendar(calendar), m_from(from), m_to(to) {}

    // The starts of the instances of `event` that overlap the window, overrides left out.
    std::vector<double> instances(icalcomponent* event, const Span& span,
                                  const std::set<double>& overridden) {
        m_span = &span;
        m_excluded = overridden;
        collectExclusions(event);
        consider(span.start);
        for (icalproperty* rule = icalcomponent_get_first_property(event, ICAL_RRULE_PROPERTY);
             rule != nullptr; rule = icalcomponent_get_next_property(event, ICAL_RRULE_PROPERTY)) {
            walkRule(icalproperty_get_rrule(rule));
        }
        for (icalproperty* rdate = icalcomponent_get_first_property(event, ICAL_RDATE_PROPERTY);
             rdate != nullptr; rdate = icalcomponent_get_next_property(event, ICAL_RDATE_PROPERTY)) {
            const icaldatetimeperiodtype value = icalproperty_get_rdate(rdate);
            icaltimetype time = icaltime_is_null_time(value.time) ? value.period.start : value.time;
            consider(IcsTime::inZoneOf(IcsTime::withZone(time, rdate, m_calendar), m_span->start));
        }
        return {m_found.begin(), m_found.end()};
    }

    // Where an instance starting at `start` ends.
    [[nodiscard]] Date endOf(const icaltimetype& start, Date startDate) const {
        if (m_span->allDayDays > 0) {
            return IcsTime::toDate(IcsTime::addDays(start, m_span->allDayDays)).value_or(startDate + 86400.0);
        }
        return startDate + m_span->timedSeconds;
    }

private:
    void collectExclusions(icalcomponent* event) {
        for (icalproperty* exdate = icalcomponent_get_first_property(event, ICAL_EXDATE_PROPERTY);
             exdate != nullptr; exdate = icalcomponent_get_next_property(event, ICAL_EXDATE_PROPERTY)) {
            icaltimetype time = IcsTime::withZone(icalproperty_get_exdate(exdate), exdate, m_calendar);
            time = IcsTime::inZoneOf(time, m_span->start);
            if (time.is_date && !m_span->start.is_date) {
                // A date excludes the instance on that day, at the series' own time of day.
                time.is_date = 0;
                time.hour = m_span->start.hour;
                time.minute = m_span->start.minute;
                time.second = m_span->start.second;
                time.zone = m_span->start.zone;
            }
            if (auto date = IcsTime::toDate(time)) m_excluded.insert(date->seconds);
        }
    }

    // False once the instance starts at or after the window's end: later ones can only be later.
    bool consider(icaltimetype start) {
        start.is_date = m_span->start.is_date;
        const auto date = IcsTime::toDate(start);
        if (!date) return true;
        if (*date >= m_to) return false;
        const Date end = endOf(start, *date);
        const bool overlaps = end > m_from || (end == *date && *date >= m_from);
        if (overlaps && !m_excluded.contains(date->seconds)) m_found.insert(date->seconds);
        return true;
    }

    void walkRule(const icalrecurrencetype& rule) {
        icalrecur_iterator* iterator = icalrecur_iterator_new(rule, m_span->start);
        if (iterator == nullptr) return;
        // Jumping needs a rule without COUNT, whose instances don't depend on the ones skipped.
        const double reach = m_span->allDayDays * 86400.0 + m_span->timedSeconds;
        // A day of margin covers any difference between the zone's offset and the local one.
        const icaltimetype jump = IcsTime::wallTimeAt(m_from - reach - 86400.0, m_span->start);
        if (rule.count == 0 && icaltime_compare(jump, m_span->start) > 0)
            icalrecur_iterator_set_start(iterator, jump);
        for (int step = 0; step < kMaxSteps; ++step) {
            icaltimetype next = icalrecur_iterator_next(iterator);
            if (icaltime_is_null_time(next)) break;
            next.zone = m_span->start.zone;
            if (!consider(next)) break;
        }
        icalrecur_iterator_free(iterator);
    }

    icalcomponent* m_calendar;
    Date m_from;
    Date m_to;
    const Span* m_span = nullptr;
    std::set<double> m_excluded;
    std::set<double> m_found;
};

// The starts each UID's overrides replace.
std::map<std::string, std::set<double>> overriddenStarts(icalcomponent* calendar) {
    std::map<std::string, std::set<double>> overridden;
    for (icalcomponent* event = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT);
         event != nullptr; event = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT)) {
        icaltimetype id =
            zonedProperty(event, ICAL_RECURRENCEID_PROPERTY, calendar, icalproperty_get_recurrenceid);
        if (icaltime_is_null_time(id)) continue;
        id = IcsTime::inZoneOf(
            id, zonedProperty(event, ICAL_DTSTART_PROPERTY, calendar, icalproperty_get_dtstart));
        if (auto date = IcsTime::toDate(id))
            overridden[text(icalcomponent_get_uid(event))].insert(date->seconds);
    }
    return overridden;
}

}  // namespace

void appendOccurrences(icalcomponent* calendar, Date from, Date to, const EventReading& reading,
                       std::vector<CalendarEvent>& out) {
    const auto overridden = overriddenStarts(calendar);
    static const std::set<double> none;
    for (icalcomponent* event = icalcomponent_get_first_component(calendar, ICAL_VEVENT_COMPONENT);
         event != nullptr; event = icalcomponent_get_next_component(calendar, ICAL_VEVENT_COMPONENT)) {
        if (icalcomponent_get_status(event) == ICAL_STATUS_CANCELLED) continue;
        const auto span = spanOf(event, calendar);
        if (!span) continue;
        const bool isOverride =
            icalcomponent_get_first_property(event, ICAL_RECURRENCEID_PROPERTY) != nullptr;
        auto found = overridden.find(text(icalcomponent_get_uid(event)));
        const auto& skipped = isOverride || found == overridden.end() ? none : found->second;
        Expansion expansion(calendar, from, to);
        const auto starts = expansion.instances(event, *span, isOverride ? none : skipped);
        for (double seconds : starts) {
            CalendarEvent occurrence = describe(event, reading);
            occurrence.start = Date{seconds};
            occurrence.allDay = span->allDayDays > 0;
            occurrence.end =
                expansion.endOf(IcsTime::wallTimeAt(occurrence.start, span->start), occurrence.start);
            out.push_back(std::move(occurrence));
        }
    }
}

}  // namespace vantrelle::IcsComponent
