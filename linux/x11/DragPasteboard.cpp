#include "x11/DragPasteboard.h"

#include <xcb/xcb.h>
#include <xcb/xfixes.h>

#include <QSocketNotifier>
#include <cstdlib>
#include <cstring>
#include <memory>

namespace vantrelle {

namespace {

template <typename T>
std::unique_ptr<T, decltype(&std::free)> own(T* reply) {
    return {reply, &std::free};
}

xcb_atom_t intern(xcb_connection_t* c, const char* name) {
    auto reply = own(xcb_intern_atom_reply(
        c, xcb_intern_atom(c, 0, static_cast<std::uint16_t>(std::strlen(name)), name), nullptr));
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

}  // namespace

X11DragPasteboard::X11DragPasteboard() {
    m_connection = xcb_connect(nullptr, nullptr);
    if (xcb_connection_has_error(m_connection)) return;
    const auto* xfixes = xcb_get_extension_data(m_connection, &xcb_xfixes_id);
    if (!xfixes || !xfixes->present) return;
    own(xcb_xfixes_query_version_reply(m_connection, xcb_xfixes_query_version(m_connection, 5, 0), nullptr));
    m_xfixesEvent = xfixes->first_event;
    m_selection = intern(m_connection, "XdndSelection");
    m_typeList = intern(m_connection, "XdndTypeList");
    m_uriList = intern(m_connection, "text/uri-list");

    const auto root = xcb_setup_roots_iterator(xcb_get_setup(m_connection)).data->root;
    xcb_xfixes_select_selection_input(m_connection, root, m_selection,
                                      XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER);
    xcb_flush(m_connection);
    m_notifier = new QSocketNotifier(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read, this);
    QObject::connect(m_notifier, &QSocketNotifier::activated, this, [this] { drain(); });
    drain();
}

X11DragPasteboard::~X11DragPasteboard() {
    delete m_notifier;
    if (m_connection) xcb_disconnect(m_connection);
}

void X11DragPasteboard::drain() {
    while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
        if ((event->response_type & 0x7f) == m_xfixesEvent + XCB_XFIXES_SELECTION_NOTIFY) ++m_changeCount;
        std::free(event);
    }
}

bool X11DragPasteboard::hasFileUrls() const {
    if (!m_notifier) return false;
    auto owner = own(xcb_get_selection_owner_reply(
        m_connection, xcb_get_selection_owner(m_connection, m_selection), nullptr));
    if (!owner || owner->owner == XCB_WINDOW_NONE) return false;
    auto types = own(xcb_get_property_reply(
        m_connection, xcb_get_property(m_connection, 0, owner->owner, m_typeList, XCB_ATOM_ATOM, 0, 64),
        nullptr));
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
