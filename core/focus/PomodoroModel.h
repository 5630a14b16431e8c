#pragma once

#include <optional>
#include <string>
#include <vector>

#include "activity/LiveActivityCenter.h"
#include "catalog/AppSettings.h"
#include "focus/PomodoroMode.h"
#include "focus/PomodoroPorts.h"
#include "platform/Clock.h"
#include "platform/DefaultsStore.h"
#include "platform/Environment.h"
#include "platform/Scheduler.h"
#include "platform/SoundPlayer.h"
#include "support/NotificationCenter.h"
#include "support/Signal.h"

namespace vantrelle {

class WrappedHistory;

// The one focus timer: work blocks, breaks, quick and custom timers, counted against a wall-clock end
// so a machine that sleeps through the end finishes the block once, at the first tick after waking.
// A block's end never starts the next one: the next phase waits paused, fully loaded, with a choice
// offered until the user answers. The day's completed blocks live in the defaults. Main thread only.
class PomodoroModel final : public PomodoroChoice {
public:
    struct FocusTarget {
        enum class Kind { event, reminder, task };
        Kind kind = Kind::task;
        std::string title;
        std::string subtitle;
        std::string icon;
        bool operator==(const FocusTarget&) const = default;
    };

    struct Dependencies {
        const Clock& clock;
        Scheduler& scheduler;
        AppSettings& settings;
        DefaultsStore& defaults;
        LiveActivityCenter& activities;
        NotificationCenter& notifications;
        SoundPlayer& sounds;
        PomodoroAlerts& alerts;
        WrappedHistory* history;  // none in tests that don't look at it
        const Environment& environment;
        bool demoMode = false;
    };

    // A reply this soon after the choice appears is a stray click on a banner that just showed up.
    static constexpr double kChoiceGuard = 0.45;
    static constexpr double kTickInterval = 0.25;

    explicit PomodoroModel(Dependencies dependencies);
    PomodoroModel(const PomodoroModel&) = delete;
    PomodoroModel& operator=(const PomodoroModel&) = delete;

    [[nodiscard]] static PomodoroModel& shared();

    void start(std::int64_t minutes, PomodoroPhase phase);
    void pause();
    void resume();
    void stop();
    void continueWorking() override;
    void startQueuedPhase() override;
    void clearChoice() override;
    // The view's mode picker: loads the mode's length while idle, changes nothing on the clock otherwise.
    void setMode(PomodoroMode mode);
    void setFocusTarget(std::optional<FocusTarget> target);
    // Running: pause; paused: resume; idle: a focus block of the set length (the tray's one command).
    void toggle();

    [[nodiscard]] PomodoroPhase phase() const { return m_phase; }
    [[nodiscard]] PomodoroStatus status() const { return m_status; }
    [[nodiscard]] double remaining() const { return m_remaining; }
    [[nodiscard]] double total() const { return m_total; }
    [[nodiscard]] const std::vector<Date>& sessionsToday() const { return m_sessionsToday; }
    [[nodiscard]] bool awaitingChoice() const { return m_awaitingChoice; }
    [[nodiscard]] std::optional<Date> choiceShownAt() const { return m_choiceShownAt; }
    [[nodiscard]] const std::optional<FocusTarget>& focusTarget() const { return m_focusTarget; }
    [[nodiscard]] PomodoroMode mode() const { return m_mode; }
    [[nodiscard]] std::optional<Date> endDate() const { return m_endDate; }

    [[nodiscard]] double progress() const;
    [[nodiscard]] std::string timeString() const;
    [[nodiscard]] std::string_view statusText() const;

    // After every change of an observable value.
    Signal<> changed;

private:
    void armTestBlock(double seconds);
    void startTimer();
    void tick();
    void finishPhase();
    void queueBreak();
    void queueFocus();
    void setStatus(PomodoroStatus status);
    void applyMode();
    [[nodiscard]] bool replyAccepted(std::string_view operation) const;
    [[nodiscard]] std::int64_t minutesOf(PomodoroMode mode) const { return minutes(mode, m_d.settings); }

    Dependencies m_d;
    PomodoroPhase m_phase = PomodoroPhase::focus;
    PomodoroStatus m_status = PomodoroStatus::idle;
    double m_remaining = 1500;
    double m_total = 1500;
    std::vector<Date> m_sessionsToday;
    bool m_awaitingChoice = false;
    std::optional<Date> m_choiceShownAt;
    std::optional<FocusTarget> m_focusTarget;
    PomodoroMode m_mode = PomodoroMode::work;
    std::optional<RepeatingTimer> m_timer;
    std::optional<Date> m_endDate;
    std::optional<WorkItem> m_testBlock;
    Connection m_settingsConnection;
};

}  // namespace vantrelle
