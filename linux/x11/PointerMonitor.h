#pragma once

#include <QObject>
#include <functional>
#include <memory>

#include "overlay/NotchOverlayController.h"

struct xcb_connection_t;
class QSocketNotifier;

namespace vantrelle {

// Every pointer move, left press and left drag on the desktop, whichever program it goes to. Listens
// to XInput2 raw events on the root window over a connection of its own, so it sleeps while the
// pointer rests; a burst of events becomes one position read and one callback.
class PointerMonitor final : public QObject {
public:
    using Handler = std::function<void(NotchOverlayController::MouseEvent, int x, int y)>;

    explicit PointerMonitor(Handler handler);
    ~PointerMonitor() override;

    // False where there is no X server or no XInput 2.
    [[nodiscard]] bool isRunning() const { return m_notifier != nullptr; }

private:
    void drain();

    Handler m_handler;
    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_root = 0;
    std::uint8_t m_xinputOpcode = 0;
    bool m_leftButtonDown = false;
    QSocketNotifier* m_notifier = nullptr;
};

}  // namespace vantrelle
