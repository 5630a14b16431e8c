#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "overlay/Geometry.h"
#include "overlay/Screen.h"
#include "platform/TrayItems.h"

namespace vantrelle {

// The stretch of top bar a camera notch covers, left edge to right edge.
struct NotchRange {
    double start = 0;
    double end = 0;
    bool operator==(const NotchRange&) const = default;
};

// From the first screen that has a notch; none without one, or when its two side areas overlap.
[[nodiscard]] std::optional<NotchRange> notchRange(const std::vector<ScreenInfo>& screens);
// The notched screen's right edge, else the main screen's, else far away.
[[nodiscard]] double screenRight(const std::vector<ScreenInfo>& screens,
                                 std::optional<std::size_t> mainScreen);
// Behind the notch (touching it by a point counts), under the menus, or off the screen.
[[nodiscard]] bool isBehindSomething(const Rect& frame, const std::optional<NotchRange>& range,
                                     double menusEnd, double screenRight);
// The largest pixel count a tray picture may have; bigger ones are a program's mistake, not an icon.
inline constexpr int kMaxTrayPixmapSide = 1024;
// The usable picture whose longer side is closest to `side`, the larger on a tie; null without one.
[[nodiscard]] const TrayPixmap* closestPixmap(const std::vector<TrayPixmap>& pixmaps, int side);
// "Foo Helper" is "Foo"; a name that is only the suffix keeps it; a missing name is "App".
[[nodiscard]] std::string cleanAppName(std::string_view name);

}  // namespace vantrelle
