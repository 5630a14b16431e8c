#pragma once

#include <QRect>
#include <QRegion>
#include <QWindow>
#include <optional>

#include "x11/XConnection.h"

namespace vantrelle {

// The few X11 window-manager facts and window shapes the overlay needs. Every call is a no-op (or
// "no") where there is no X server, so the same binary runs elsewhere.
class X11Desktop {
public:
    explicit X11Desktop(const XConnection& connection) : m_connection(connection) {}

    [[nodiscard]] bool isAvailable() const { return m_connection.isOpen(); }

    // The active window is in the full-screen state and covers `screen` (desktop pixels).
    [[nodiscard]] bool activeWindowIsFullScreen(const QRect& screen) const;
    // A compositing manager runs, so transparent windows blend with what lies below.
    [[nodiscard]] bool hasCompositor() const;
    // The X server is XWayland: raw pointer events reach us only while the pointer is over X windows.
    [[nodiscard]] bool isXWayland() const;
    // What the window draws (absent: all of it) and where it takes the pointer, in window pixels.
    void setShapes(const QWindow& window, const std::optional<QRegion>& bounding, const QRegion& input) const;

private:
    const XConnection& m_connection;
};

}  // namespace vantrelle
