#include "focus/QuickTimerModel.h"

#include <fmt/format.h>

#include <algorithm>

#include "focus/FocusFormat.h"
#include "support/DebugLog.h"
#include "support/SharedInstance.h"

namespace vantrelle {

QuickTimerModel& QuickTimerModel::shared() {
    return SharedInstance<QuickTimerModel>::get();
}

std::string QuickTimerModel::format(double seconds) {
    return quickTimerString(seconds);
}

double QuickTimerModel::progress() const {
    return timerProgress(m_remaining, m_total);
}

void QuickTimerModel::setStatus(Status status) {
    m_status = status;
    m_d.activities.set(
        status == Status::idle ? std::nullopt : std::optional(LiveActivity{LiveActivity::QuickTimer{}}),
        LiveActivityCenter::Source::quickTimer);
}

void QuickTimerModel::start(double seconds, std::string label) {
    m_total = std::max(0.0, seconds);
    m_remaining = m_total;
    m_label = std::move(label);
    m_endDate = m_d.clock.now() + m_total;
    setStatus(Status::running);
    m_timer = m_d.scheduler.repeat(kTickInterval, [this] { tick(); });
    DebugLog::write([&] { return fmt::format("quick timer: {} for {}s", m_label, m_total); });
    changed.emit();
}

void QuickTimerModel::tick() {
    if (m_status != Status::running || !m_endDate) return;
    m_remaining = std::max(0.0, *m_endDate - m_d.clock.now());
    if (m_remaining <= 0) {
        finish();
        return;
    }
    changed.emit();
}

void QuickTimerModel::pause() {
    if (m_status != Status::running) return;
    tick();
    if (m_status != Status::running) return;  // it ended on that tick
    m_timer.reset();
    setStatus(Status::paused);
    changed.emit();
}

void QuickTimerModel::resume() {
    if (m_status != Status::paused) return;
    m_endDate = m_d.clock.now() + m_remaining;
    setStatus(Status::running);
    m_timer = m_d.scheduler.repeat(kTickInterval, [this] { tick(); });
    changed.emit();
}

void QuickTimerModel::cancel() {
    if (m_status == Status::idle) return;
    m_timer.reset();
    m_endDate.reset();
    m_remaining = 0;
    setStatus(Status::idle);
    changed.emit();
}

void QuickTimerModel::finish() {
    m_timer.reset();
    m_endDate.reset();
    m_remaining = 0;
    setStatus(Status::idle);
    if (m_d.settings.playSounds()) m_d.sounds.play("Glass");
    DebugLog::write([&] { return fmt::format("quick timer: {} done", m_label); });
    changed.emit();
    m_d.notifications.post(Notifications::timerFinished);
}

}  // namespace vantrelle
