#pragma once

#include <optional>
#include <string>
#include <vector>

#include "activity/LiveActivityCenter.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "support/Signal.h"

namespace vantrelle {

// A stopwatch measured against the wall clock in segments, so a late timer never loses time and time
// asleep counts. A paused stopwatch with time on it stays in the closed notch until it is reset.
// Main thread only.
class StopwatchModel {
public:
    static constexpr double kTickInterval = 0.1;

    StopwatchModel(const Clock& clock, Scheduler& scheduler, LiveActivityCenter& activities)
        : m_clock(clock), m_scheduler(scheduler), m_activities(activities) {}
    StopwatchModel(const StopwatchModel&) = delete;
    StopwatchModel& operator=(const StopwatchModel&) = delete;

    [[nodiscard]] static StopwatchModel& shared();

    void start();
    void pause();
    void reset();
    // While running: the time since the previous lap (or the start) joins `laps`.
    void lap();

    [[nodiscard]] bool isRunning() const { return m_isRunning; }
    [[nodiscard]] double elapsed() const { return m_elapsed; }
    [[nodiscard]] const std::vector<double>& laps() const { return m_laps; }
    // "%02d:%02d.%d" with tenths floored below an hour; "%d:%02d:%02d" truncated from an hour on.
    [[nodiscard]] static std::string format(double seconds);

    Signal<> changed;

private:
    void tick();
    void publish();

    const Clock& m_clock;
    Scheduler& m_scheduler;
    LiveActivityCenter& m_activities;
    bool m_isRunning = false;
    double m_elapsed = 0;
    std::vector<double> m_laps;
    std::optional<RepeatingTimer> m_timer;
    std::optional<Date> m_segmentStart;
    double m_accumulated = 0;
    double m_lapAnchor = 0;
};

}  // namespace vantrelle
