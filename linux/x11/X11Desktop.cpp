#include "x11/X11Desktop.h"

#include <xcb/shape.h>
#include <xcb/xcb.h>

#include <QGuiApplication>
#include <QScreen>
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <memory>
#include <string>
#include <vector>

namespace vantrelle {

namespace {

template <typename T>
std::unique_ptr<T, decltype(&std::free)> own(T* reply) {
    return {reply, &std::free};
}

std::vector<xcb_rectangle_t> rectangles(const QRegion& region) {
    std::vector<xcb_rectangle_t> out;
    for (const QRect& r : region) {
        out.push_back({static_cast<std::int16_t>(r.x()), static_cast<std::int16_t>(r.y()),
                       static_cast<std::uint16_t>(r.width()), static_cast<std::uint16_t>(r.height())});
    }
    return out;
}

}  // namespace

bool X11Desktop::activeWindowIsFullScreen(const QRect& screen) const {
    xcb_connection_t* c = m_connection.get();
    if (!c) return false;
    const auto activeAtom = m_connection.atom("_NET_ACTIVE_WINDOW");
    auto active = own(xcb_get_property_reply(
        c, xcb_get_property(c, 0, m_connection.root(), activeAtom, XCB_ATOM_WINDOW, 0, 1), nullptr));
    if (!active || xcb_get_property_value_length(active.get()) < 4) return false;
    const auto window = *static_cast<xcb_window_t*>(xcb_get_property_value(active.get()));
    if (window == XCB_WINDOW_NONE) return false;

    const auto fullScreenAtom = m_connection.atom("_NET_WM_STATE_FULLSCREEN");
    auto state = own(xcb_get_property_reply(
        c, xcb_get_property(c, 0, window, m_connection.atom("_NET_WM_STATE"), XCB_ATOM_ATOM, 0, 32),
        nullptr));
    if (!state) return false;
    const auto* atoms = static_cast<xcb_atom_t*>(xcb_get_property_value(state.get()));
    const int count = xcb_get_property_value_length(state.get()) / 4;
    bool fullScreen = false;
    for (int i = 0; i < count; ++i) fullScreen |= atoms[i] == fullScreenAtom;
    if (!fullScreen) return false;

    // Full screen on another display leaves the notch alone.
    auto geometry = own(xcb_get_geometry_reply(c, xcb_get_geometry(c, window), nullptr));
    auto origin = own(xcb_translate_coordinates_reply(
        c, xcb_translate_coordinates(c, window, m_connection.root(), 0, 0), nullptr));
    if (!geometry || !origin) return false;
    const QRect frame(origin->dst_x, origin->dst_y, geometry->width, geometry->height);
    return frame.intersects(screen) && frame.intersected(screen).size() == screen.size();
}

bool X11Desktop::hasCompositor() const {
    xcb_connection_t* c = m_connection.get();
    if (!c) return false;
    const std::string name = "_NET_WM_CM_S" + std::to_string(m_connection.screenNumber());
    auto owner = own(xcb_get_selection_owner_reply(
        c, xcb_get_selection_owner(c, m_connection.atom(name.c_str())), nullptr));
    return owner && owner->owner != XCB_WINDOW_NONE;
}

void X11Desktop::setShapes(const QWindow& window, const std::optional<QRegion>& bounding,
                           const QRegion& input) const {
    xcb_connection_t* c = m_connection.get();
    if (!c) return;
    const auto id = static_cast<xcb_window_t>(window.winId());
    if (bounding) {
        const auto rects = rectangles(*bounding);
        xcb_shape_rectangles(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, XCB_CLIP_ORDERING_UNSORTED, id, 0, 0,
                             static_cast<std::uint32_t>(rects.size()), rects.data());
    } else {
        xcb_shape_mask(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_BOUNDING, id, 0, 0, XCB_PIXMAP_NONE);
    }
    const auto inputRects = rectangles(input);
    xcb_shape_rectangles(c, XCB_SHAPE_SO_SET, XCB_SHAPE_SK_INPUT, XCB_CLIP_ORDERING_UNSORTED, id, 0, 0,
                         static_cast<std::uint32_t>(inputRects.size()), inputRects.data());
    xcb_flush(c);
}

bool X11Desktop::isXWayland() const {
    xcb_connection_t* c = m_connection.get();
    if (!c) return false;
    constexpr char kName[] = "XWAYLAND";
    std::unique_ptr<xcb_query_extension_reply_t, decltype(&std::free)> reply(
        xcb_query_extension_reply(c, xcb_query_extension(c, sizeof(kName) - 1, kName), nullptr), &std::free);
    if (reply && reply->present) return true;
    // Xwayland before 23.1 has no such extension, but it names every output it offers XWAYLAND<n>.
    const auto screens = QGuiApplication::screens();
    return std::any_of(screens.begin(), screens.end(), [](const QScreen* screen) {
        return screen->name().startsWith(QLatin1String("XWAYLAND"));
    });
}

}  // namespace vantrelle
