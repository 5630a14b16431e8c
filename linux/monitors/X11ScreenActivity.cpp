#include "monitors/X11ScreenActivity.h"

#include <xcb/screensaver.h>
#include <xcb/xcb.h>

#include <algorithm>
#include <cstdlib>
#include <memory>
#include <string>

#include "monitors/ProcFiles.h"

namespace vantrelle {
namespace {

template <typename T>
std::unique_ptr<T, decltype(&std::free)> own(T* reply) {
    return {reply, &std::free};
}

std::optional<std::uint32_t> cardinal(xcb_connection_t* c, xcb_window_t window, xcb_atom_t property,
                                      xcb_atom_t type) {
    auto reply =
        own(xcb_get_property_reply(c, xcb_get_property(c, 0, window, property, type, 0, 1), nullptr));
    if (!reply || xcb_get_property_value_length(reply.get()) < 4) return std::nullopt;
    return *static_cast<const std::uint32_t*>(xcb_get_property_value(reply.get()));
}

// WM_CLASS is "instance\0class\0"; the class names the application.
std::string windowClass(xcb_connection_t* c, xcb_window_t window) {
    auto reply = own(xcb_get_property_reply(
        c, xcb_get_property(c, 0, window, XCB_ATOM_WM_CLASS, XCB_ATOM_STRING, 0, 256), nullptr));
    if (!reply) return {};
    const int length = xcb_get_property_value_length(reply.get());
    const std::string value(static_cast<const char*>(xcb_get_property_value(reply.get())),
                            static_cast<std::size_t>(std::max(length, 0)));
    const std::size_t split = value.find('\0');
    if (split == std::string::npos) return value;
    std::string klass = value.substr(split + 1);
    while (!klass.empty() && klass.back() == '\0') klass.pop_back();
    return klass.empty() ? value.substr(0, split) : klass;
}

}  // namespace

X11ScreenActivity::X11ScreenActivity(XConnection& connection, DesktopEntryIndex& entries, pid_t ownPid)
    : m_connection(connection), m_entries(entries), m_ownPid(ownPid) {
    if (!m_connection.isOpen()) return;
    m_activeAtom = m_connection.atom("_NET_ACTIVE_WINDOW");
    const std::uint32_t mask = XCB_EVENT_MASK_PROPERTY_CHANGE;
    // Other adapters may listen on the root too; property changes add to what they asked for.
    auto attributes = own(xcb_get_window_attributes_reply(
        m_connection.get(), xcb_get_window_attributes(m_connection.get(), m_connection.root()), nullptr));
    const std::uint32_t events = (attributes ? attributes->your_event_mask : 0U) | mask;
    xcb_change_window_attributes(m_connection.get(), m_connection.root(), XCB_CW_EVENT_MASK, &events);
    xcb_flush(m_connection.get());
    m_connection.addListener(*this);
}

X11ScreenActivity::~X11ScreenActivity() {
    if (m_connection.isOpen()) m_connection.removeListener(*this);
}

std::optional<FrontmostApp> X11ScreenActivity::frontmost() {
    xcb_connection_t* c = m_connection.get();
    if (c == nullptr) return std::nullopt;
    const auto window = cardinal(c, m_connection.root(), m_activeAtom, XCB_ATOM_WINDOW);
    if (!window || *window == XCB_WINDOW_NONE) return std::nullopt;
    const auto pid = cardinal(c, *window, m_connection.atom("_NET_WM_PID"), XCB_ATOM_CARDINAL);
    if (pid && static_cast<pid_t>(*pid) == m_ownPid) return std::nullopt;  // our own panel
    const std::string executable =
        pid ? procfs::linkTarget(std::filesystem::path("/proc") / std::to_string(*pid) / "exe")
            : std::string();
    const std::string klass = windowClass(c, *window);
    if (const DesktopEntry* entry = matchDesktopEntry(m_entries.entries(), executable, klass)) {
        return FrontmostApp{entry->id, entry->name, executable};
    }
    if (klass.empty()) return std::nullopt;
    return FrontmostApp{klass, klass, executable};
}

double X11ScreenActivity::idleSeconds() {
    xcb_connection_t* c = m_connection.get();
    if (c == nullptr) return 0;
    auto info =
        own(xcb_screensaver_query_info_reply(c, xcb_screensaver_query_info(c, m_connection.root()), nullptr));
    return info ? info->ms_since_user_input / 1000.0 : 0.0;
}

void X11ScreenActivity::handleEvent(const void* event) {
    const auto* generic = static_cast<const xcb_generic_event_t*>(event);
    if ((generic->response_type & 0x7F) != XCB_PROPERTY_NOTIFY) return;
    const auto* notify = static_cast<const xcb_property_notify_event_t*>(event);
    if (notify->window == m_connection.root() && notify->atom == m_activeAtom) m_activeChanged = true;
}

void X11ScreenActivity::afterEvents() {
    if (!m_activeChanged) return;
    m_activeChanged = false;
    if (m_onSwitch) m_onSwitch(frontmost());
}

}  // namespace vantrelle
