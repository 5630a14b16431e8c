#include "overlay/NotchGeometry.h"

#include <algorithm>

#include "overlay/NotchState.h"

namespace vantrelle {

std::optional<NotchGeometry> NotchGeometry::detect(const std::vector<ScreenInfo>& screens,
                                                   std::optional<std::size_t> mainIndex,
                                                   bool simulateIfMissing, double simulatedWidth,
                                                   double simulatedHeight) {
    // A notched display wins over the main one, wherever the top bar is.
    for (const auto& screen : screens) {
        if (!screen.auxiliaryTopLeftArea || !screen.auxiliaryTopRightArea) continue;
        const Rect& f = screen.frame;
        const Rect& left = *screen.auxiliaryTopLeftArea;
        const Rect& right = *screen.auxiliaryTopRightArea;
        const Rect notch{f.minX() + left.width, f.maxY() - left.height, f.width - left.width - right.width,
                         left.height};
        return NotchGeometry{screen, notch, false};
    }
    if (!simulateIfMissing || screens.empty()) return std::nullopt;

    const ScreenInfo& screen = screens[mainIndex && *mainIndex < screens.size() ? *mainIndex : 0];
    const Rect& f = screen.frame;
    const double height = std::max(f.maxY() - screen.visibleFrame.maxY(), simulatedHeight);
    const Rect notch{f.midX() - simulatedWidth / 2, f.maxY() - height, simulatedWidth, height};
    return NotchGeometry{screen, notch, true};
}

Rect NotchGeometry::panelFrame(double expandedWidth) const {
    const double width = std::max(notchRect.width + 2 * kActivityWing, expandedWidth) + 56;
    const double height = NotchLayout::expandedHeight + kDockHeight + 28;
    return {notchRect.midX() - width / 2, notchRect.maxY() - height, width, height};
}

Rect collapsedHitRect(const Rect& notchRect, bool hasActivity) {
    Rect r = notchRect;
    if (hasActivity) {
        r.x -= kActivityWing;
        r.width += 2 * kActivityWing;
    }
    // 6 points past the sides and 4 below, nothing above the screen edge.
    return {r.x - 6, r.y - 4, r.width + 12, r.height + 4};
}

Rect expandedHitRect(const Rect& notchRect, Size expandedSize, bool showDock) {
    const double dock = showDock ? kDockHeight : 0;
    return {notchRect.midX() - expandedSize.width / 2 - 10,
            notchRect.maxY() - expandedSize.height - dock - 12, expandedSize.width + 20,
            expandedSize.height + dock + 12};
}

}  // namespace vantrelle
