#pragma once

#include <cstdint>

#include "overlay/OverlayPorts.h"
#include "x11/XConnection.h"

namespace vantrelle {

// The drag-and-drop "pasteboard" of X11: every drag between programs takes ownership of the
// XdndSelection, so counting ownership changes tells whether a new drag began since the mouse went
// down, and the source's advertised types tell whether it carries files.
class X11DragPasteboard final : public DragPasteboard, private XConnection::Listener {
public:
    explicit X11DragPasteboard(XConnection& connection);
    ~X11DragPasteboard() override;
    X11DragPasteboard(const X11DragPasteboard&) = delete;
    X11DragPasteboard& operator=(const X11DragPasteboard&) = delete;

    [[nodiscard]] std::int64_t changeCount() const override { return m_changeCount; }
    [[nodiscard]] bool hasFileUrls() const override;

private:
    void handleEvent(const void* event) override;

    XConnection& m_connection;
    bool m_running = false;
    std::uint32_t m_selection = 0;
    std::uint32_t m_typeList = 0;
    std::uint32_t m_uriList = 0;
    std::uint8_t m_xfixesEvent = 0;
    std::int64_t m_changeCount = 0;
};

}  // namespace vantrelle
