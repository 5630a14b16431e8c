#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "catalog/AppSettings.h"
#include "catalog/ShortcutTarget.h"
#include "overlay/Geometry.h"
#include "platform/Date.h"

namespace vantrelle {

// The panel and the drop zone above it, as the overlay drives them. The shell implements this with
// real windows; tests with a recorder.
class OverlayWindows {
public:
    virtual ~OverlayWindows() = default;
    [[nodiscard]] virtual bool hasPanel() const = 0;
    // Creates both windows on the first call, re-frames them afterwards. Does not show them.
    virtual void layout(const Rect& panelFrame, const Rect& dropZoneFrame) = 0;
    // Shows both, the drop zone above the panel, without activating the program.
    virtual void orderFront() = 0;
    virtual void orderOut() = 0;
    // A collapsed panel lets every click through to what lies below it.
    virtual void setPanelIgnoresMouse(bool ignores) = 0;
    // Brings the opened panel forward, taking the keyboard focus only when asked.
    virtual void raisePanel(bool takeFocus) = 0;
    // Without glass the panel is always dark; with glass it follows the appearance.
    virtual void applyAppearance(bool glass, Appearance appearance) = 0;
    // A full-screen gradient behind everything, for demonstrations.
    virtual void showBackdrop(const Rect& screenFrame) = 0;
};

// What is being dragged. A drag that put nothing new on the pasteboard since the mouse went down
// carries no file.
class DragPasteboard {
public:
    virtual ~DragPasteboard() = default;
    [[nodiscard]] virtual std::int64_t changeCount() const = 0;
    [[nodiscard]] virtual bool hasFileUrls() const = 0;
};

// The rest of the program as the overlay reaches it. Every call has a harmless default, so parts that
// are not built yet simply do nothing.
class OverlayServices {
public:
    virtual ~OverlayServices() = default;
    virtual void recordCursor(Point) {}
    // Clicks before this instant are the menu bar tool's own synthetic ones.
    [[nodiscard]] virtual std::optional<Date> menuBarIgnoreClicksUntil() const { return std::nullopt; }
    [[nodiscard]] virtual bool isGamePlaying() const { return false; }
    virtual void stopCamera() {}
    // Calendar and reminders, where the user allowed them.
    virtual void refreshSchedule() {}
    virtual void addToShelf(const std::vector<std::string>& /*fileUrls*/) {}
    // NOLINTNEXTLINE(performance-unnecessary-value-param): the platform's ports keep the callback
    virtual void installShortcuts(std::function<void(ShortcutTarget)> /*onFire*/) {}
    // The background services, in their start-up order.
    virtual void startBackgroundServices() {}
    virtual void terminate() {}
};

}  // namespace vantrelle
