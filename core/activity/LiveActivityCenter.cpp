#include "activity/LiveActivityCenter.h"

#include "support/SharedInstance.h"

namespace vantrelle {

LiveActivityCenter& LiveActivityCenter::shared() {
    return SharedInstance<LiveActivityCenter>::get();
}

void LiveActivityCenter::set(std::optional<LiveActivity> activity, Source source) {
    m_activities[static_cast<std::size_t>(source)] = std::move(activity);
    recompute();
}

void LiveActivityCenter::flash(LiveActivity activity, double seconds) {
    m_flashWork.reset();
    m_activities[static_cast<std::size_t>(Source::flash)] = std::move(activity);
    recompute();
    // The item lives in this object, so it can never fire after the center is gone.
    m_flashWork = m_scheduler.schedule(seconds, [this] {
        m_flashWork.reset();
        m_activities[static_cast<std::size_t>(Source::flash)].reset();
        recompute();
    });
}

void LiveActivityCenter::recompute() {
    const std::optional<LiveActivity>* winner = nullptr;
    for (const auto& slot : m_activities) {
        if (slot) {
            winner = &slot;
            break;
        }
    }
    // Compare before copying: feeders repeat themselves every few seconds and nothing should change.
    if (winner ? *winner == m_current : !m_current) return;
    m_current = winner ? *winner : std::nullopt;
    currentChanged.emit(m_current);
}

}  // namespace vantrelle
