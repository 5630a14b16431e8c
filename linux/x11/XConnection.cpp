#include "x11/XConnection.h"

#include <xcb/xcb.h>

#include <QAbstractEventDispatcher>
#include <QSocketNotifier>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>

#include "support/DebugLog.h"

namespace vantrelle {

XConnection::XConnection() {
    xcb_connection_t* connection = xcb_connect(nullptr, &m_screenNumber);
    if (xcb_connection_has_error(connection)) {
        xcb_disconnect(connection);
        DebugLog::write("overlay: no X display, the X11 adapters are off");
        return;
    }
    m_connection = connection;
    auto screens = xcb_setup_roots_iterator(xcb_get_setup(m_connection));
    for (int i = 0; i < m_screenNumber && screens.rem; ++i) xcb_screen_next(&screens);
    m_root = screens.data->root;

    m_notifier = new QSocketNotifier(xcb_get_file_descriptor(m_connection), QSocketNotifier::Read, this);
    QObject::connect(m_notifier, &QSocketNotifier::activated, this, [this] { drain(); });
    // Waiting for a reply, xcb may read events into its queue, and then the socket stays quiet: look
    // in the queue each time the event loop is about to sleep.
    if (auto* dispatcher = QAbstractEventDispatcher::instance()) {
        QObject::connect(dispatcher, &QAbstractEventDispatcher::aboutToBlock, this,
                         [this] { drainQueued(); });
    }
}

XConnection::~XConnection() {
    delete m_notifier;
    if (m_connection) xcb_disconnect(m_connection);
}

std::uint32_t XConnection::atom(const char* name) const {
    if (!m_connection) return XCB_ATOM_NONE;
    const auto cookie = xcb_intern_atom(m_connection, 0, static_cast<std::uint16_t>(std::strlen(name)), name);
    std::unique_ptr<xcb_intern_atom_reply_t, decltype(&std::free)> reply(
        xcb_intern_atom_reply(m_connection, cookie, nullptr), &std::free);
    return reply ? reply->atom : xcb_atom_t{XCB_ATOM_NONE};
}

void XConnection::addListener(Listener& listener) {
    m_listeners.push_back(&listener);
}

void XConnection::removeListener(Listener& listener) {
    std::erase(m_listeners, &listener);
}

void XConnection::dispatch(void* event) {
    const auto listeners = m_listeners;  // a listener may come or go while it hears the event
    for (Listener* listener : listeners) listener->handleEvent(event);
    std::free(event);
}

void XConnection::finishBurst() {
    const auto listeners = m_listeners;
    for (Listener* listener : listeners) listener->afterEvents();
}

void XConnection::drain() {
    // A listener's work after a burst may wait for replies, during which more events queue up; so keep
    // going until a pass finds nothing.
    for (;;) {
        bool any = false;
        while (xcb_generic_event_t* event = xcb_poll_for_event(m_connection)) {
            any = true;
            dispatch(event);
        }
        if (xcb_connection_has_error(m_connection)) {
            DebugLog::write("overlay: the X connection broke, the X11 adapters stop");
            m_notifier->setEnabled(false);
            return;
        }
        if (!any) return;
        finishBurst();
    }
}

void XConnection::drainQueued() {
    if (!m_notifier->isEnabled()) return;
    bool any = false;
    while (xcb_generic_event_t* event = xcb_poll_for_queued_event(m_connection)) {
        any = true;
        dispatch(event);
    }
    if (any) drain();
}

}  // namespace vantrelle
