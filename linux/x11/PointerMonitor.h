#pragma once

#include <cstdint>
#include <functional>

#include "overlay/NotchOverlayController.h"
#include "x11/XConnection.h"

namespace vantrelle {

// Every pointer move, left press and left drag on the desktop, whichever program it goes to. Listens
// to XInput2 raw events on the root window, so it sleeps while the pointer rests; a burst of events
// becomes one position read and one callback.
class PointerMonitor final : private XConnection::Listener {
public:
    using Handler = std::function<void(NotchOverlayController::MouseEvent, int x, int y)>;

    PointerMonitor(XConnection& connection, Handler handler);
    ~PointerMonitor();
    PointerMonitor(const PointerMonitor&) = delete;
    PointerMonitor& operator=(const PointerMonitor&) = delete;

    // False where there is no X server or no XInput 2.
    [[nodiscard]] bool isRunning() const { return m_running; }

private:
    void handleEvent(const void* event) override;
    void afterEvents() override;

    XConnection& m_connection;
    Handler m_handler;
    std::uint8_t m_xinputOpcode = 0;
    bool m_running = false;
    bool m_leftButtonDown = false;
    bool m_moved = false;    // since the last burst
    bool m_pressed = false;  // since the last burst
};

}  // namespace vantrelle
