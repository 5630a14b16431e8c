#include "menubar/MenuBarRules.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdlib>

namespace vantrelle {

std::optional<NotchRange> notchRange(const std::vector<ScreenInfo>& screens) {
    for (const auto& screen : screens) {
        if (!screen.auxiliaryTopLeftArea) continue;
        if (!screen.auxiliaryTopRightArea) return std::nullopt;
        const NotchRange range{screen.auxiliaryTopLeftArea->maxX(), screen.auxiliaryTopRightArea->minX()};
        if (range.start > range.end) return std::nullopt;
        return range;
    }
    return std::nullopt;
}

double screenRight(const std::vector<ScreenInfo>& screens, std::optional<std::size_t> mainScreen) {
    for (const auto& screen : screens) {
        if (screen.auxiliaryTopLeftArea) return screen.frame.maxX();
    }
    if (mainScreen && *mainScreen < screens.size()) return screens[*mainScreen].frame.maxX();
    return 99999;
}

bool isBehindSomething(const Rect& frame, const std::optional<NotchRange>& range, double menusEnd,
                       double screenRight) {
    if (range && frame.maxX() > range->start && frame.minX() < range->end) return true;
    return frame.minX() < menusEnd || frame.maxX() > screenRight || frame.minX() < 0;
}

std::string cleanAppName(std::string_view name) {
    if (name.empty()) return "App";
    for (std::string_view suffix : std::array<std::string_view, 3>{"Menu", "Helper", "Agent"}) {
        if (name.size() > suffix.size() && name.ends_with(suffix)) {
            name.remove_suffix(suffix.size());
            while (!name.empty() && std::isspace(static_cast<unsigned char>(name.back())))
                name.remove_suffix(1);
            break;
        }
    }
    return name.empty() ? "App" : std::string(name);
}

const TrayPixmap* closestPixmap(const std::vector<TrayPixmap>& pixmaps, int side) {
    const TrayPixmap* best = nullptr;
    int bestSide = 0;
    for (const TrayPixmap& pixmap : pixmaps) {
        if (!pixmap.isValid() || pixmap.width > kMaxTrayPixmapSide || pixmap.height > kMaxTrayPixmapSide)
            continue;
        const int longer = std::max(pixmap.width, pixmap.height);
        const int distance = std::abs(longer - side);
        const int bestDistance = std::abs(bestSide - side);
        if (!best || distance < bestDistance || (distance == bestDistance && longer > bestSide)) {
            best = &pixmap;
            bestSide = longer;
        }
    }
    return best;
}

}  // namespace vantrelle
