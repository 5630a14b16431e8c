#pragma once

#include <optional>

#include "overlay/Screen.h"

namespace vantrelle {

// Where the notch is: the first display with a real one, else a simulated notch on the main display.
struct NotchGeometry {
    ScreenInfo screen;
    Rect notchRect;
    bool isSimulated = false;

    [[nodiscard]] static std::optional<NotchGeometry> detect(const std::vector<ScreenInfo>& screens,
                                                             std::optional<std::size_t> mainIndex,
                                                             bool simulateIfMissing, double simulatedWidth,
                                                             double simulatedHeight);

    // The big transparent window: centred on the notch, hanging from the top of the screen, with room
    // for the collapsed activities on both sides and for the dock and shadow below.
    [[nodiscard]] Rect panelFrame(double expandedWidth) const;

    bool operator==(const NotchGeometry&) const = default;
};

// Sizes the overlay uses for a simulated notch.
inline constexpr double kSimulatedNotchWidth = 185;
inline constexpr double kSimulatedNotchHeight = 32;
// How far each collapsed activity reaches beyond the notch.
inline constexpr double kActivityWing = 68;
// The rounded bottom corners of the shell under the notch, open and closed.
inline constexpr double kExpandedCornerRadius = 36;
inline constexpr double kCollapsedCornerRadius = 14;
// The row of tools, in the panel or as the dock, which hangs this far below the panel.
inline constexpr double kRailHeight = 46;
inline constexpr double kDockGap = 12;
inline constexpr double kDockHeight = kDockGap + kRailHeight;

// The pointer targets: the collapsed one around the notch (wider with a live activity) and the
// expanded one from the top of the screen to just below the panel and dock.
// The closed shell: as wide as the notch, plus a wing on each side while an activity is live.
[[nodiscard]] constexpr double collapsedShellWidth(double notchWidth, bool hasActivity) {
    return notchWidth + (hasActivity ? 2 * kActivityWing : 0);
}
[[nodiscard]] Rect collapsedHitRect(const Rect& notchRect, bool hasActivity);
[[nodiscard]] Rect expandedHitRect(const Rect& notchRect, Size expandedSize, bool showDock);

}  // namespace vantrelle
