#include "overlay/QuietMonitor.h"

#include "support/DebugLog.h"

namespace vantrelle {

namespace {
const char* text(bool value) {
    return value ? "true" : "false";
}
}  // namespace

QuietMonitor::QuietMonitor(Scheduler& scheduler, const Clock& clock, Probes probes, const CameraUse& camera,
                           bool pretendCall)
    : m_scheduler(scheduler),
      m_clock(clock),
      m_probes(std::move(probes)),
      m_camera(camera),
      m_pretendCall(pretendCall) {}

void QuietMonitor::start() {
    m_timer = m_scheduler.repeat(kPollInterval, [this] { refresh(); });
    refresh();
}

void QuietMonitor::refresh() {
    // A probe that is missing or fails reads as "no full screen, no camera".
    const bool full = m_probes.isFullScreenSpace && m_probes.isFullScreenSpace(screen());
    const bool busy = m_pretendCall || (m_probes.anyCameraRunning && m_probes.anyCameraRunning() &&
                                        !m_camera.isInUseByUs(m_clock.now()));
    if (full == m_fullScreen && busy == m_cameraBusyElsewhere) return;
    m_fullScreen = full;
    m_cameraBusyElsewhere = busy;
    DebugLog::write([&] {
        return std::string("quiet: fullScreen=") + text(full) + " cameraBusyElsewhere=" + text(busy);
    });
    if (onChange) onChange();
}

}  // namespace vantrelle
