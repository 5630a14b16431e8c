#include "mirror/MirrorCamera.h"

#include "support/DebugLog.h"

namespace vantrelle {

void MirrorCamera::setWanted(bool wanted) {
    apply(wanted, m_use.sessionRunning);
}

void MirrorCamera::setSessionRunning(bool running) {
    apply(m_use.wantsCamera, running);
}

void MirrorCamera::apply(bool wanted, bool running) {
    const bool wasOurs = m_use.wantsCamera || m_use.sessionRunning;
    const bool wantChanged = wanted != m_use.wantsCamera;
    m_use.wantsCamera = wanted;
    m_use.sessionRunning = running;
    // The margin counts from the moment neither the view nor the session holds the camera any more.
    if (wasOurs && !wanted && !running) {
        m_use.ownUseEndedAt = m_clock.now();
        DebugLog::write("mirror: camera released");
    }
    if (wantChanged) changed.emit();
}

}  // namespace vantrelle
