#pragma once

#include <functional>
#include <string>

#include "catalog/AppSettings.h"
#include "focus/DayProgress.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "support/Signal.h"

namespace vantrelle {

// The Day Progress tile's figures: where now stands in the workday of the settings, and today's pointer
// travel. Ticks only while a view shows it. Main thread only.
class DayProgressModel {
public:
    static constexpr double kTickInterval = 20.0;

    struct Deps {
        const Clock& clock;
        Scheduler& scheduler;
        AppSettings& settings;
        std::function<double()> metresToday;  // may be empty: no mileage
    };

    explicit DayProgressModel(Deps deps);

    // Repeated calls with the same value change nothing.
    void setActive(bool active);
    // Reads the clock, the settings and the mileage; `changed` when any figure moved.
    void refresh();

    [[nodiscard]] const DayProgress& progress() const { return m_progress; }
    [[nodiscard]] double metresToday() const { return m_metres; }
    [[nodiscard]] std::string headline() const { return dayProgressHeadline(m_progress); }
    [[nodiscard]] std::string hoursText() const { return workdayHoursText(m_progress); }
    [[nodiscard]] std::string percentText() const { return dayProgressPercent(m_progress); }
    // "1.2 km of cursor travel today".
    [[nodiscard]] std::string mileageText() const;

    Signal<> changed;

private:
    Deps m_deps;
    Connection m_settingsConnection;
    RepeatingTimer m_tick;
    DayProgress m_progress;
    double m_metres = 0;
    bool m_active = false;
};

}  // namespace vantrelle
