#pragma once

#include <QRect>
#include <QRegion>
#include <QWindow>
#include <optional>

struct xcb_connection_t;

namespace vantrelle {

// The few X11 window-manager facts and window shapes the overlay needs, over a connection of its own.
// Every call is a no-op (or "no") where there is no X server, so the same binary runs elsewhere.
class X11Desktop {
public:
    X11Desktop();
    ~X11Desktop();
    X11Desktop(const X11Desktop&) = delete;
    X11Desktop& operator=(const X11Desktop&) = delete;

    [[nodiscard]] bool isAvailable() const { return m_connection != nullptr; }

    // The active window is in the full-screen state and covers `screen` (desktop pixels).
    [[nodiscard]] bool activeWindowIsFullScreen(const QRect& screen) const;
    // A compositing manager runs, so transparent windows blend with what lies below.
    [[nodiscard]] bool hasCompositor() const;
    // What the window draws (absent: all of it) and where it takes the pointer, in window pixels.
    void setShapes(const QWindow& window, const std::optional<QRegion>& bounding, const QRegion& input) const;

private:
    [[nodiscard]] std::uint32_t atom(const char* name) const;

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_root = 0;
    int m_screenNumber = 0;
};

}  // namespace vantrelle
