#pragma once

#include <sys/types.h>

#include <functional>

#include "monitors/DesktopEntryIndex.h"
#include "platform/ScreenActivity.h"
#include "x11/XConnection.h"

namespace vantrelle {

// The frontmost application and idle time on X11: `_NET_ACTIVE_WINDOW` of the root, the window's
// `_NET_WM_PID`, that process's program file matched to a .desktop entry (WM_CLASS where none
// matches), and the screen saver extension's time since the last input. Watches the root for changes
// of the active window and calls `onSwitch` with the new front.
class X11ScreenActivity final : public ScreenActivity, private XConnection::Listener {
public:
    using SwitchHandler = std::function<void(std::optional<FrontmostApp>)>;
    X11ScreenActivity(XConnection& connection, DesktopEntryIndex& entries, pid_t ownPid);
    ~X11ScreenActivity();
    X11ScreenActivity(const X11ScreenActivity&) = delete;
    X11ScreenActivity& operator=(const X11ScreenActivity&) = delete;

    void setSwitchHandler(SwitchHandler handler) { m_onSwitch = std::move(handler); }

    [[nodiscard]] std::optional<FrontmostApp> frontmost() override;
    [[nodiscard]] double idleSeconds() override;

private:
    void handleEvent(const void* event) override;
    void afterEvents() override;

    XConnection& m_connection;
    DesktopEntryIndex& m_entries;
    pid_t m_ownPid;
    std::uint32_t m_activeAtom = 0;
    bool m_activeChanged = false;
    SwitchHandler m_onSwitch;
};

}  // namespace vantrelle
