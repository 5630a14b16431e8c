#pragma once

#include "overlay/CameraUse.h"
#include "platform/Clock.h"
#include "support/Signal.h"

namespace vantrelle {

// The mirror tool's use of the camera. The view says when it wants a preview and when the camera
// session actually runs; the panel closing stops it. Each change lands in the CameraUse the quiet
// monitor reads, with the instant our use ended, so a device that still reports "running" for a
// moment afterwards is not taken for a call. Main thread only.
class MirrorCamera {
public:
    MirrorCamera(CameraUse& use, const Clock& clock) : m_use(use), m_clock(clock) {}

    // Emitted after every change of wanted().
    Signal<> changed;

    [[nodiscard]] bool wanted() const { return m_use.wantsCamera; }
    void setWanted(bool wanted);
    void setSessionRunning(bool running);
    // The panel closed: the preview stops wherever it was.
    void stop() { setWanted(false); }

    [[nodiscard]] bool isInUseByUs() const { return m_use.isInUseByUs(m_clock.now()); }

private:
    void apply(bool wanted, bool running);

    CameraUse& m_use;
    const Clock& m_clock;
};

}  // namespace vantrelle
