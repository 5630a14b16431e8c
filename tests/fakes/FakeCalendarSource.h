#pragma once

#include <functional>
#include <vector>

#include "schedule/CalendarSource.h"

namespace vantrelle::testing {

// Calendars held in memory: the test edits `calendar` and calls `changed()` as a sync would.
class FakeCalendarSource final : public CalendarSource {
public:
    [[nodiscard]] Access access() override { return granted ? Access::fullAccess : Access::notDetermined; }
    [[nodiscard]] std::vector<CalendarEvent> events(Date from, Date to) override {
        std::vector<CalendarEvent> result;
        for (const auto& event : calendar) {
            if (event.start < to && (event.end > from || event.start >= from)) result.push_back(event);
        }
        return result;
    }
    void observeChanges(std::function<void()> onChange) override { m_onChange = std::move(onChange); }
    void requestAccess(std::function<void()> done) override {
        granted = true;
        done();
    }

    void changed() {
        if (m_onChange) m_onChange();
    }
    [[nodiscard]] bool isObserved() const { return static_cast<bool>(m_onChange); }

    std::vector<CalendarEvent> calendar;
    bool granted = true;

private:
    std::function<void()> m_onChange;
};

}  // namespace vantrelle::testing
