#include "preferences/DashboardArrangement.h"

#include <algorithm>

namespace vantrelle {

std::vector<DashTile> movedDashTile(std::vector<DashTile> tiles, std::size_t from, std::size_t to) {
    if (from >= tiles.size() || to >= tiles.size() || from == to) return tiles;
    const auto first = tiles.begin();
    if (from < to) {
        std::rotate(first + static_cast<std::ptrdiff_t>(from), first + static_cast<std::ptrdiff_t>(from) + 1,
                    first + static_cast<std::ptrdiff_t>(to) + 1);
    } else {
        std::rotate(first + static_cast<std::ptrdiff_t>(to), first + static_cast<std::ptrdiff_t>(from),
                    first + static_cast<std::ptrdiff_t>(from) + 1);
    }
    return tiles;
}

std::vector<DashTile> placedDashTile(std::vector<DashTile> tiles, std::size_t slot, DashTile tile) {
    if (slot >= tiles.size()) return tiles;
    const auto existing = std::find(tiles.begin(), tiles.end(), tile);
    if (existing != tiles.end()) *existing = tiles[slot];
    tiles[slot] = tile;
    return tiles;
}

}  // namespace vantrelle
