#pragma once

#include <array>
#include <optional>
#include <string_view>
#include <vector>

#include "catalog/NotchTab.h"

namespace vantrelle {

// The tiles the Dashboard can show, eight at a time.
enum class DashTile {
    today,
    launcher,
    pomodoro,
    dayProgress,
    tasks,
    notes,
    reminders,
    quickToggles,
    music,
    aiUsage,
    systemStats,
    shelf,
    screenTime,
    devServers,
};

inline constexpr std::size_t kDashTileCount = 14;
inline constexpr std::size_t kDashboardSlots = 8;

struct DashTileInfo {
    std::string_view raw;
    std::string_view title;
    std::string_view icon;
    std::string_view subtitle;
};

[[nodiscard]] const DashTileInfo& info(DashTile tile);
[[nodiscard]] inline std::string_view rawValue(DashTile tile) {
    return info(tile).raw;
}
[[nodiscard]] std::optional<DashTile> dashTileFromRaw(std::string_view raw);

// Exactly eight distinct tiles: the given ones in order, first occurrence kept, filled up with the
// default layout and then every tile in order, cut to eight.
[[nodiscard]] std::vector<DashTile> normalizedDashTiles(const std::vector<DashTile>& tiles);
// The tool a tile opens when clicked; nothing for tiles that are complete in themselves.
[[nodiscard]] std::optional<NotchTab> toolForTile(DashTile tile);

// The first eight tiles: two rows of four.
[[nodiscard]] std::vector<DashTile> defaultDashTiles();

}  // namespace vantrelle
