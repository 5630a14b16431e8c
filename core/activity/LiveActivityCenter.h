#pragma once

#include <array>
#include <optional>

#include "activity/LiveActivity.h"
#include "platform/Scheduler.h"
#include "support/Signal.h"

namespace vantrelle {

// The arbiter of the closed notch: every feeder writes its own slot, and the activity of the highest
// source wins. Lower slots keep updating silently and come back when the higher one empties.
// Main thread only.
class LiveActivityCenter {
public:
    // Highest priority first; this order is the rank.
    enum class Source { flash, agentAlert, meeting, pomodoro, quickTimer, stopwatch, downloads, ai, media };
    static constexpr std::size_t kSourceCount = 9;

    explicit LiveActivityCenter(Scheduler& scheduler) : m_scheduler(scheduler) {}
    LiveActivityCenter(const LiveActivityCenter&) = delete;
    LiveActivityCenter& operator=(const LiveActivityCenter&) = delete;

    [[nodiscard]] static LiveActivityCenter& shared();

    [[nodiscard]] const std::optional<LiveActivity>& current() const { return m_current; }
    [[nodiscard]] const std::optional<LiveActivity>& activity(Source source) const {
        return m_activities[static_cast<std::size_t>(source)];
    }

    // Writes or clears one feeder's slot.
    void set(std::optional<LiveActivity> activity, Source source);
    // Shows `activity` above everything for `seconds`. A new flash replaces the running one and starts
    // its own time; nothing is queued.
    void flash(LiveActivity activity, double seconds);

    // Emitted when `current` changes; views animate it with the bouncy spring.
    Signal<std::optional<LiveActivity>> currentChanged;

private:
    void recompute();

    Scheduler& m_scheduler;
    std::array<std::optional<LiveActivity>, kSourceCount> m_activities;
    std::optional<LiveActivity> m_current;
    std::optional<WorkItem> m_flashWork;
};

}  // namespace vantrelle
