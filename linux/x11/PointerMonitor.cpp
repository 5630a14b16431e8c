#include "x11/PointerMonitor.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <QSocketNotifier>
#include <cstdlib>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

template <typename T>
using Reply = std::unique_ptr<T, decltype(&std::free)>;

template <typename T>
Reply<T> own(T* reply) {
    return Reply<T>(reply, &std::free);
}

}  // namespace

PointerMonitor::PointerMonitor(Handler handler) : m_handler(std::move(handler)) {
    m_connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(m_connection)) {
        DebugLog::write("overlay: no X display, pointer monitor off");
        return;
    }
    const xcb_query_extension_reply_t* xinput = xcb_get_extension_data(m_connection, &xcb_input_id);
    if (!xinput || !xinput->present) {
        DebugLog::write("overlay: no XInput extension, pointer monitor off");
        return;
    }
    m_xinputOpcode = xinput->major_opcode;
    auto version = own(xcb_input_xi_query_version_reply(
        m_connection, xcb_input_xi_query_version(m_connection, 2, 0), nullptr));
    if (!version || version->major_version < 2) {
        DebugLog::write("overlay: XInput 2 missing, pointer monitor off");
        return;
    }
    m_root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;

    struct {
        xcb_input_event_mask_t header;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
                    XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE};
    xcb_input_xi_select_events(m_connection, m_root, 1, &selection.header);
    xcb_flush(m_connection);

    m_notifier = new QSocketNotifier(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read, this);
    QObject::connect(m_notifier, &QSocketNotifier::activated, this, [this] { drain(); });
    drain();
}

PointerMonitor::~PointerMonitor() {
    delete m_notifier;
    if (m_connection) xcb_disconnect(m_connection);
}

void PointerMonitor::drain() {
    // xcb may have read events into its queue while it waited for a reply, and then the socket stays
    // quiet; so keep going until a pass finds nothing, queued or new.
    for (;;) {
        bool moved = false;
        bool pressed = false;
        bool any = false;
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
            any = true;
            if ((event->response_type & 0x7f) == XCB_GE_GENERIC) {
                auto* generic = reinterpret_cast<xcb_ge_generic_event_t*>(event);
                if (generic->extension == m_xinputOpcode) {
                    auto* raw = reinterpret_cast<xcb_input_raw_button_press_event_t*>(event);
                    switch (generic->event_type) {
                        case XCB_INPUT_RAW_MOTION:
                            moved = true;
                            break;
                        case XCB_INPUT_RAW_BUTTON_PRESS:
                            if (raw->detail == 1) {
                                m_leftButtonDown = true;
                                pressed = true;
                            }
                            break;
                        case XCB_INPUT_RAW_BUTTON_RELEASE:
                            if (raw->detail == 1) m_leftButtonDown = false;
                            break;
                        default:
                            break;
                    }
                }
            }
            std::free(event);
        }
        if (xcb_connection_has_error(m_connection)) {
            m_notifier->setEnabled(false);
            return;
        }
        if (!any) return;
        if (!moved && !pressed) continue;

        // Raw events carry no position; one query answers for the whole burst.
        auto pointer =
            own(xcb_query_pointer_reply(m_connection, xcb_query_pointer(m_connection, m_root), nullptr));
        if (!pointer) continue;
        using Event = NotchOverlayController::MouseEvent;
        if (pressed) m_handler(Event::leftMouseDown, pointer->root_x, pointer->root_y);
        if (moved) {
            m_handler(m_leftButtonDown ? Event::leftMouseDragged : Event::mouseMoved, pointer->root_x,
                      pointer->root_y);
        }
    }
}

}  // namespace vantrelle
