#include "focus/DayProgressModel.h"

#include <cmath>

#include "wrapped/MileageShare.h"

namespace vantrelle {

DayProgressModel::DayProgressModel(Deps deps) : m_deps(std::move(deps)) {
    // Any setting: the workday's two are the ones that matter, and a refresh is cheap.
    m_settingsConnection = m_deps.settings.changed.connect([this](std::string_view) { refresh(); });
    refresh();
}

void DayProgressModel::setActive(bool active) {
    if (active == m_active) return;
    m_active = active;
    if (!active) {
        m_tick.cancel();
        return;
    }
    refresh();
    m_tick = m_deps.scheduler.repeat(kTickInterval, [this] { refresh(); });
}

void DayProgressModel::refresh() {
    const DayProgress next = dayProgressAt(m_deps.clock.now(), m_deps.settings.workdayStartMinutes(),
                                           m_deps.settings.workdayEndMinutes());
    double metres = m_deps.metresToday ? m_deps.metresToday() : 0.0;
    if (!std::isfinite(metres) || metres < 0) metres = 0;
    if (next == m_progress && metres == m_metres) return;
    m_progress = next;
    m_metres = metres;
    changed.emit();
}

std::string DayProgressModel::mileageText() const {
    return distanceText(m_metres) + " of cursor travel today";
}

}  // namespace vantrelle
