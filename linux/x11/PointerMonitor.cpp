#include "x11/PointerMonitor.h"

#include <xcb/xcb.h>
#include <xcb/xinput.h>

#include <cstdlib>
#include <memory>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

template <typename T>
std::unique_ptr<T, decltype(&std::free)> own(T* reply) {
    return {reply, &std::free};
}

}  // namespace

PointerMonitor::PointerMonitor(XConnection& connection, Handler handler)
    : m_connection(connection), m_handler(std::move(handler)) {
    xcb_connection_t* c = m_connection.get();
    if (!c) {
        DebugLog::write("overlay: no X display, pointer monitor off");
        return;
    }
    const xcb_query_extension_reply_t* xinput = xcb_get_extension_data(c, &xcb_input_id);
    if (!xinput || !xinput->present) {
        DebugLog::write("overlay: no XInput extension, pointer monitor off");
        return;
    }
    m_xinputOpcode = xinput->major_opcode;
    // A client that announces 2.0 gets no raw events while another client holds a grab, such as the
    // implicit grab of a click on our own panel, and would miss the release that ends it. From 2.1 on
    // raw events arrive whatever the grab.
    auto version = own(xcb_input_xi_query_version_reply(c, xcb_input_xi_query_version(c, 2, 2), nullptr));
    if (!version || version->major_version < 2) {
        DebugLog::write("overlay: XInput 2 missing, pointer monitor off");
        return;
    }

    struct {
        xcb_input_event_mask_t header;
        std::uint32_t mask;
    } selection{{XCB_INPUT_DEVICE_ALL_MASTER, 1},
                XCB_INPUT_XI_EVENT_MASK_RAW_MOTION | XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS |
                    XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_RELEASE};
    xcb_input_xi_select_events(c, m_connection.root(), 1, &selection.header);
    xcb_flush(c);
    m_connection.addListener(*this);
    m_running = true;
}

PointerMonitor::~PointerMonitor() {
    if (m_running) m_connection.removeListener(*this);
}

void PointerMonitor::handleEvent(const void* event) {
    if ((static_cast<const xcb_generic_event_t*>(event)->response_type & 0x7f) != XCB_GE_GENERIC) return;
    const auto& generic = *static_cast<const xcb_ge_generic_event_t*>(event);
    if (generic.extension != m_xinputOpcode) return;
    const auto& raw = *static_cast<const xcb_input_raw_button_press_event_t*>(event);
    switch (generic.event_type) {
        case XCB_INPUT_RAW_MOTION:
            m_moved = true;
            break;
        case XCB_INPUT_RAW_BUTTON_PRESS:
            if (raw.detail == 1) {
                m_leftButtonDown = true;
                m_pressed = true;
            }
            break;
        case XCB_INPUT_RAW_BUTTON_RELEASE:
            if (raw.detail == 1) m_leftButtonDown = false;
            break;
        default:
            break;
    }
}

void PointerMonitor::afterEvents() {
    if (!m_moved && !m_pressed) return;
    const bool moved = std::exchange(m_moved, false);
    const bool pressed = std::exchange(m_pressed, false);
    // Raw events carry no position; one query answers for the whole burst.
    xcb_connection_t* c = m_connection.get();
    auto pointer = own(xcb_query_pointer_reply(c, xcb_query_pointer(c, m_connection.root()), nullptr));
    if (!pointer) return;
    // The server's button state is the truth: a release we never heard of must not turn every later
    // move into a drag.
    m_leftButtonDown = (pointer->mask & XCB_BUTTON_MASK_1) != 0;
    using Event = NotchOverlayController::MouseEvent;
    if (pressed) m_handler(Event::leftMouseDown, pointer->root_x, pointer->root_y);
    if (moved) {
        m_handler(m_leftButtonDown ? Event::leftMouseDragged : Event::mouseMoved, pointer->root_x,
                  pointer->root_y);
    }
}

}  // namespace vantrelle
