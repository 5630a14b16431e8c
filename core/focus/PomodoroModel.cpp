#include "focus/PomodoroModel.h"

#include <fmt/format.h>

#include <charconv>
#include <cmath>
#include <system_error>

#include "focus/FocusFormat.h"
#include "focus/PomodoroDayRecord.h"
#include "support/DebugLog.h"
#include "support/SharedInstance.h"
#include "wrapped/WrappedHistory.h"

namespace vantrelle {

namespace {

constexpr std::int64_t kFirstBlockMinutes = 25;  // what the tray, the test hook and demo mode start
constexpr double kDemoRemaining = 1108;
constexpr double kDemoFirstBlockAgo = 6300;
constexpr double kDemoSecondBlockAgo = 2400;
constexpr std::size_t kBlocksPerLongBreak = 4;

// A positive, finite number, the whole text of it; anything else turns the hook off.
std::optional<double> positiveSeconds(const std::optional<std::string>& text) {
    if (!text || text->empty()) return std::nullopt;
    double value = 0;
    const char* end = text->data() + text->size();
    auto [ptr, error] = std::from_chars(text->data(), end, value);
    if (error != std::errc() || ptr != end || !std::isfinite(value) || !(value > 0)) return std::nullopt;
    return value;
}

}  // namespace

PomodoroModel& PomodoroModel::shared() {
    return SharedInstance<PomodoroModel>::get();
}

PomodoroModel::PomodoroModel(Dependencies dependencies) : m_d(dependencies) {
    const Date now = m_d.clock.now();
    m_sessionsToday = PomodoroDayRecord::load(m_d.defaults, now);
    // An idle timer shows the length the settings give, then and whenever they change.
    applyMode();
    m_settingsConnection = m_d.settings.changed.connect([this](std::string_view property) {
        if (m_status != PomodoroStatus::idle || !property.ends_with("Minutes")) return;
        applyMode();
        changed.emit();
    });
    if (auto seconds = positiveSeconds(m_d.environment.get("VANTRELLE_POMODORO_TEST"))) {
        m_testBlock = m_d.scheduler.schedule(1.0, [this, t = *seconds] { armTestBlock(t); });
        return;
    }
    if (m_d.demoMode) {
        m_sessionsToday = {now - kDemoFirstBlockAgo, now - kDemoSecondBlockAgo};
        start(kFirstBlockMinutes, PomodoroPhase::focus);
        m_remaining = kDemoRemaining;
        m_endDate = now + kDemoRemaining;
        changed.emit();
    }
}

void PomodoroModel::armTestBlock(double seconds) {
    start(kFirstBlockMinutes, PomodoroPhase::focus);
    m_total = seconds;
    m_remaining = seconds;
    m_endDate = m_d.clock.now() + seconds;
    DebugLog::write([&] { return fmt::format("pomodoro: test block armed for {}s", seconds); });
    changed.emit();
}

double PomodoroModel::progress() const {
    return timerProgress(m_remaining, m_total);
}

std::string PomodoroModel::timeString() const {
    return pomodoroTimeString(m_remaining);
}

std::string_view PomodoroModel::statusText() const {
    if (m_awaitingChoice) return m_phase == PomodoroPhase::shortBreak ? "Work session done" : "Break over";
    switch (m_status) {
        case PomodoroStatus::idle:
            return "Ready to focus";
        case PomodoroStatus::paused:
            return "Paused";
        case PomodoroStatus::running:
            break;
    }
    return m_phase == PomodoroPhase::shortBreak ? "Break" : "Running";
}

void PomodoroModel::setStatus(PomodoroStatus status) {
    m_status = status;
    // The collapsed notch shows the timer while anything is on it, a queued phase included.
    m_d.activities.set(
        status == PomodoroStatus::idle ? std::nullopt : std::optional(LiveActivity{LiveActivity::Pomodoro{}}),
        LiveActivityCenter::Source::pomodoro);
    DebugLog::write([&] {
        return fmt::format("pomodoro: {} {} {}s", rawValue(status), rawValue(m_mode),
                           std::lround(m_remaining));
    });
}

void PomodoroModel::applyMode() {
    if (m_status != PomodoroStatus::idle) return;
    m_phase = isBreak(m_mode) ? PomodoroPhase::shortBreak : PomodoroPhase::focus;
    m_total = static_cast<double>(minutesOf(m_mode)) * 60;
    m_remaining = m_total;
}

void PomodoroModel::setMode(PomodoroMode mode) {
    m_mode = mode;
    applyMode();
    changed.emit();
}

void PomodoroModel::setFocusTarget(std::optional<FocusTarget> target) {
    m_focusTarget = std::move(target);
    changed.emit();
}

void PomodoroModel::start(std::int64_t minutes, PomodoroPhase phase) {
    clearChoice();
    m_d.alerts.requestAuthorizationIfNeeded();
    m_phase = phase;
    m_total = static_cast<double>(minutes) * 60;
    m_remaining = m_total;
    m_endDate = m_d.clock.now() + m_remaining;
    setStatus(PomodoroStatus::running);
    startTimer();
    changed.emit();
}

void PomodoroModel::startTimer() {
    m_timer = m_d.scheduler.repeat(kTickInterval, [this] { tick(); });
}

void PomodoroModel::tick() {
    if (m_status != PomodoroStatus::running || !m_endDate) return;
    // Derived from the wall clock at every tick, never counted down: that is the whole answer to sleep.
    m_remaining = std::max(0.0, *m_endDate - m_d.clock.now());
    if (m_remaining <= 0) {
        finishPhase();
        return;
    }
    changed.emit();
}

void PomodoroModel::pause() {
    if (m_status != PomodoroStatus::running) return;
    tick();  // exact remaining; a block that is due ends here and has queued its own state
    if (m_status != PomodoroStatus::running) return;
    setStatus(PomodoroStatus::paused);
    m_timer.reset();
    changed.emit();
}

void PomodoroModel::resume() {
    if (m_status != PomodoroStatus::paused) return;
    clearChoice();
    m_endDate = m_d.clock.now() + m_remaining;
    setStatus(PomodoroStatus::running);
    startTimer();
    changed.emit();
}

void PomodoroModel::stop() {
    m_timer.reset();
    clearChoice();
    setStatus(PomodoroStatus::idle);
    m_phase = isBreak(m_mode) ? PomodoroPhase::shortBreak : PomodoroPhase::focus;
    m_total = static_cast<double>(minutesOf(m_mode)) * 60;
    m_remaining = m_total;
    m_endDate.reset();
    changed.emit();
}

void PomodoroModel::toggle() {
    switch (m_status) {
        case PomodoroStatus::running:
            pause();
            break;
        case PomodoroStatus::paused:
            resume();
            break;
        case PomodoroStatus::idle:
            start(m_d.settings.focusMinutes(), PomodoroPhase::focus);
            break;
    }
}

void PomodoroModel::finishPhase() {
    m_timer.reset();
    if (m_d.settings.playSounds()) m_d.sounds.play("Glass");
    m_endDate.reset();
    if (isPlainTimer(m_mode)) {
        // Not a session: it stays selected and re-armed at its full length.
        setStatus(PomodoroStatus::idle);
        m_phase = PomodoroPhase::focus;
        m_total = static_cast<double>(minutesOf(m_mode)) * 60;
        m_remaining = m_total;
    } else {
        const bool workEnded = m_phase == PomodoroPhase::focus;
        if (workEnded) {
            queueBreak();
        } else {
            queueFocus();
        }
        m_remaining = m_total;
        setStatus(PomodoroStatus::paused);
        DebugLog::write([&] {
            return fmt::format("pomodoro: {}, queued {} {}s, today {}",
                               workEnded ? "work block done" : "break over", rawValue(m_mode),
                               std::llround(m_total), m_sessionsToday.size());
        });
    }
    changed.emit();
    m_d.notifications.post(Notifications::pomodoroPhaseEnded);
}

void PomodoroModel::queueBreak() {
    const Date now = m_d.clock.now();
    // The planned length counts, whatever the wall clock did.
    if (m_d.history) m_d.history->recordFocusBlock(std::llround(m_total / 60));
    m_sessionsToday.push_back(now);
    if (!m_d.demoMode) PomodoroDayRecord::save(m_d.defaults, now, m_sessionsToday);
    // The day's total decides, not a cycle of its own.
    const std::size_t n = m_sessionsToday.size();
    const bool longBreak = n % kBlocksPerLongBreak == 0;
    const PomodoroMode next = longBreak ? PomodoroMode::longBreak : PomodoroMode::shortBreak;
    m_phase = PomodoroPhase::shortBreak;
    m_total = static_cast<double>(minutesOf(next)) * 60;
    m_mode = next;
    m_awaitingChoice = true;
    m_choiceShownAt = now;
    m_d.alerts.workFinished(static_cast<std::int64_t>(n), longBreak ? "Long Break" : "Short Break",
                            minutesOf(next));
}

void PomodoroModel::queueFocus() {
    const std::int64_t focusMinutes = m_d.settings.focusMinutes();
    m_phase = PomodoroPhase::focus;
    m_total = static_cast<double>(focusMinutes) * 60;
    m_mode = PomodoroMode::work;
    m_awaitingChoice = true;
    m_choiceShownAt = m_d.clock.now();
    m_d.alerts.breakFinished(focusMinutes);
}

void PomodoroModel::clearChoice() {
    if (!m_awaitingChoice) return;
    m_awaitingChoice = false;
    m_choiceShownAt.reset();
    m_d.alerts.removeDelivered();
    changed.emit();
}

bool PomodoroModel::replyAccepted(std::string_view operation) const {
    // Exactly the guard is still too soon.
    const bool accepted =
        m_awaitingChoice && m_choiceShownAt && m_d.clock.now() > *m_choiceShownAt + kChoiceGuard;
    if (!accepted) DebugLog::write([&] { return fmt::format("pomodoro: {} ignored", operation); });
    return accepted;
}

void PomodoroModel::continueWorking() {
    if (!replyAccepted("continueWorking")) return;
    clearChoice();
    m_mode = PomodoroMode::work;
    applyMode();
    start(m_d.settings.focusMinutes(), PomodoroPhase::focus);
}

void PomodoroModel::startQueuedPhase() {
    if (!replyAccepted("startQueuedPhase")) return;
    clearChoice();
    if (m_status == PomodoroStatus::paused) {
        resume();
    } else if (m_status == PomodoroStatus::idle) {
        applyMode();
        start(minutesOf(m_mode), isBreak(m_mode) ? PomodoroPhase::shortBreak : PomodoroPhase::focus);
    }
}

}  // namespace vantrelle
