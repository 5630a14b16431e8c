#pragma once

#include <functional>
#include <optional>

#include "overlay/CameraUse.h"
#include "overlay/Screen.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"

namespace vantrelle {

// Answers two questions for the overlay: is the notch's screen showing a full-screen window, and is a
// camera in use by somebody else (taken as a call). Polls every two seconds, because neither has a
// dependable notification; the platform may also call refresh() when the active window changes.
class QuietMonitor {
public:
    struct Probes {
        std::function<bool(const std::optional<ScreenInfo>&)> isFullScreenSpace;
        std::function<bool()> anyCameraRunning;
    };

    static constexpr double kPollInterval = 2.0;

    QuietMonitor(Scheduler& scheduler, const Clock& clock, Probes probes, const CameraUse& camera,
                 bool pretendCall);

    [[nodiscard]] bool fullScreen() const { return m_fullScreen; }
    [[nodiscard]] bool cameraBusyElsewhere() const { return m_cameraBusyElsewhere; }

    // Called after either value changed.
    std::function<void()> onChange;
    // Which screen to look at; nothing until the overlay sets it.
    std::function<std::optional<ScreenInfo>()> screen = [] { return std::nullopt; };

    void start();
    void refresh();

private:
    Scheduler& m_scheduler;
    const Clock& m_clock;
    Probes m_probes;
    const CameraUse& m_camera;
    const bool m_pretendCall;  // VANTRELLE_TEST_CALL

    bool m_fullScreen = false;
    bool m_cameraBusyElsewhere = false;
    std::optional<RepeatingTimer> m_timer;
};

}  // namespace vantrelle
