#include "x11/DragPasteboard.h"

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <cstdlib>
#include <memory>

namespace vantrelle {

namespace {

template <typename T>
std::unique_ptr<T, decltype(&std::free)> own(T* reply) {
    return {reply, &std::free};
}

}  // namespace

X11DragPasteboard::X11DragPasteboard(XConnection& connection) : m_connection(connection) {
    xcb_connection_t* c = m_connection.get();
    if (!c) return;
    const auto* xfixes = xcb_get_extension_data(c, &xcb_xfixes_id);
    if (!xfixes || !xfixes->present) return;
    own(xcb_xfixes_query_version_reply(c, xcb_xfixes_query_version(c, 5, 0), nullptr));
    m_xfixesEvent = xfixes->first_event;
    m_selection = m_connection.atom("XdndSelection");
    m_typeList = m_connection.atom("XdndTypeList");
    m_uriList = m_connection.atom("text/uri-list");

    xcb_xfixes_select_selection_input(c, m_connection.root(), m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    xcb_flush(c);
    m_connection.addListener(*this);
    m_running = true;
}

X11DragPasteboard::~X11DragPasteboard() {
    if (m_running) m_connection.removeListener(*this);
}

void X11DragPasteboard::handleEvent(const void* event) {
    const auto type = static_cast<const xcb_generic_event_t*>(event)->response_type & 0x7f;
    if (type == m_xfixesEvent + XCB_XFIXES_SELECTION_NOTIFY) ++m_changeCount;
}

bool X11DragPasteboard::hasFileUrls() const {
    if (!m_running) return false;
    xcb_connection_t* c = m_connection.get();
    auto owner = own(xcb_get_selection_owner_reply(c, xcb_get_selection_owner(c, m_selection), nullptr));
    if (!owner || owner->owner == XCB_WINDOW_NONE) return false;
    auto types = own(xcb_get_property_reply(
        c, xcb_get_property(c, 0, owner->owner, m_typeList, XCB_ATOM_ATOM, 0, 64), nullptr));
    // Sources that offer three types or fewer name them only in their first message to the target,
    // which only the target sees; such a drag is taken to carry files.
    if (!types || types->type == XCB_ATOM_NONE) return true;
    const auto* atoms = static_cast<const xcb_atom_t*>(xcb_get_property_value(types.get()));
    const int count = xcb_get_property_value_length(types.get()) / 4;
    for (int i = 0; i < count; ++i) {
        if (atoms[i] == m_uriList) return true;
    }
    return false;
}

}  // namespace vantrelle
