#pragma once

#include <map>
#include <string>
#include <string_view>

#include "support/Signal.h"

namespace vantrelle {

// The names of the in-process notifications. Two names share one string on purpose: the end of a
// focus phase and the hover test's "timer finished" are one event on the wire.
namespace Notifications {
inline constexpr std::string_view notchGeometrySettingsChanged = "Vantrelle.geometrySettingsChanged";
inline constexpr std::string_view notchAppearanceChanged = "Vantrelle.appearanceChanged";
inline constexpr std::string_view timerFinished = "Vantrelle.timerFinished";
inline constexpr std::string_view pomodoroPhaseEnded = "Vantrelle.timerFinished";
inline constexpr std::string_view pomodoroRevealRequested = "Vantrelle.pomodoroRevealRequested";
inline constexpr std::string_view meetingHeadsUp = "Vantrelle.meetingHeadsUp";
inline constexpr std::string_view claudeNeedsUser = "Vantrelle.claudeNeedsUser";
inline constexpr std::string_view tavoRunStepAside = "Vantrelle.tavoRunStepAside";
// The process is about to end: stores that debounce their saves flush them.
inline constexpr std::string_view applicationWillTerminate = "Vantrelle.applicationWillTerminate";
}  // namespace Notifications

// In-process notifications for the few events that cross subsystems, some with a message for the
// receiver. Main thread only; observers run synchronously in the order they subscribed.
class NotificationCenter {
public:
    [[nodiscard]] Connection observe(std::string_view name, std::function<void()> handler);
    [[nodiscard]] Connection observeMessage(std::string_view name,
                                            std::function<void(const std::string&)> handler);
    void post(std::string_view name, const std::string& message = {});

    static NotificationCenter& shared();

private:
    std::map<std::string, Signal<std::string>, std::less<>> m_signals;
};

}  // namespace vantrelle
