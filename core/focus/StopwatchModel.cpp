#include "focus/StopwatchModel.h"

#include "focus/FocusFormat.h"
#include "support/SharedInstance.h"

namespace vantrelle {

StopwatchModel& StopwatchModel::shared() {
    return SharedInstance<StopwatchModel>::get();
}

std::string StopwatchModel::format(double seconds) {
    return stopwatchString(seconds);
}

void StopwatchModel::start() {
    if (m_isRunning) return;
    m_segmentStart = m_clock.now();
    m_isRunning = true;
    m_timer = m_scheduler.repeat(kTickInterval, [this] { tick(); });
    publish();
}

void StopwatchModel::tick() {
    if (!m_isRunning || !m_segmentStart) return;
    m_elapsed = m_accumulated + (m_clock.now() - *m_segmentStart);
    changed.emit();
}

void StopwatchModel::pause() {
    if (!m_isRunning) return;
    tick();
    m_accumulated = m_elapsed;
    m_segmentStart.reset();
    m_isRunning = false;
    m_timer.reset();
    publish();
}

void StopwatchModel::reset() {
    m_timer.reset();
    m_isRunning = false;
    m_elapsed = 0;
    m_laps.clear();
    m_accumulated = 0;
    m_lapAnchor = 0;
    m_segmentStart.reset();
    publish();
}

void StopwatchModel::lap() {
    if (!m_isRunning) return;
    tick();
    m_laps.push_back(m_elapsed - m_lapAnchor);
    m_lapAnchor = m_elapsed;
    changed.emit();
}

void StopwatchModel::publish() {
    const bool shown = m_isRunning || m_elapsed > 0;
    m_activities.set(shown ? std::optional(LiveActivity{LiveActivity::Stopwatch{}}) : std::nullopt,
                     LiveActivityCenter::Source::stopwatch);
    changed.emit();
}

}  // namespace vantrelle
