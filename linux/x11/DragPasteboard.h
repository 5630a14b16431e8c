#pragma once

#include <QObject>
#include <cstdint>

#include "overlay/OverlayPorts.h"

struct xcb_connection_t;
class QSocketNotifier;

namespace vantrelle {

// The drag-and-drop "pasteboard" of X11: every drag between programs takes ownership of the
// XdndSelection, so counting ownership changes tells whether a new drag began since the mouse went
// down, and the source's advertised types tell whether it carries files.
class X11DragPasteboard final : public QObject, public DragPasteboard {
public:
    X11DragPasteboard();
    ~X11DragPasteboard() override;

    [[nodiscard]] std::int64_t changeCount() const override { return m_changeCount; }
    [[nodiscard]] bool hasFileUrls() const override;

private:
    void drain();

    xcb_connection_t* m_connection = nullptr;
    std::uint32_t m_selection = 0;
    std::uint32_t m_typeList = 0;
    std::uint32_t m_uriList = 0;
    std::uint8_t m_xfixesEvent = 0;
    std::int64_t m_changeCount = 0;
    QSocketNotifier* m_notifier = nullptr;
};

}  // namespace vantrelle
