#pragma once

#include <optional>
#include <string>

#include "activity/LiveActivityCenter.h"
#include "catalog/AppSettings.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/SoundPlayer.h"
#include "support/NotificationCenter.h"
#include "support/Signal.h"

namespace vantrelle {

// A short kitchen timer beside the focus timer, started from the Focus view's presets. Counts to a
// wall-clock end like the focus timer; at the end it chimes and opens the notch on the Focus tool
// through the overlay's "timer finished" path. Main thread only.
class QuickTimerModel {
public:
    enum class Status { idle, running, paused };

    struct Dependencies {
        const Clock& clock;
        Scheduler& scheduler;
        AppSettings& settings;
        LiveActivityCenter& activities;
        NotificationCenter& notifications;
        SoundPlayer& sounds;
    };

    static constexpr double kTickInterval = 0.25;

    explicit QuickTimerModel(Dependencies dependencies) : m_d(dependencies) {}
    QuickTimerModel(const QuickTimerModel&) = delete;
    QuickTimerModel& operator=(const QuickTimerModel&) = delete;

    [[nodiscard]] static QuickTimerModel& shared();

    // Starts afresh, replacing whatever ran. A length of 0 ends at the first tick.
    void start(double seconds, std::string label = "Timer");
    void pause();
    void resume();
    void cancel();

    [[nodiscard]] Status status() const { return m_status; }
    [[nodiscard]] double remaining() const { return m_remaining; }
    [[nodiscard]] double total() const { return m_total; }
    [[nodiscard]] const std::string& label() const { return m_label; }
    [[nodiscard]] double progress() const;
    // Rounded up to whole seconds; "%02d:%02d", or "%d:%02d:%02d" from an hour on.
    [[nodiscard]] static std::string format(double seconds);

    Signal<> changed;

private:
    void tick();
    void finish();
    void setStatus(Status status);

    Dependencies m_d;
    Status m_status = Status::idle;
    double m_remaining = 0;
    double m_total = 0;
    std::string m_label = "Timer";
    std::optional<RepeatingTimer> m_timer;
    std::optional<Date> m_endDate;
};

}  // namespace vantrelle
