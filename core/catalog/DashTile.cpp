#include "catalog/DashTile.h"

#include <algorithm>

#include "support/RawEnum.h"

namespace vantrelle {

namespace {

constexpr std::array<DashTileInfo, kDashTileCount> kTiles{{
    {"today", "Today", "calendar", "Your next two events"},
    {"launcher", "Launcher", "square.grid.2x2", "Your Dock apps, one click away"},
    {"pomodoro", "Pomodoro", "briefcase.fill", "Timer, controls and today's blocks"},
    {"dayProgress", "Day Progress", "sunrise", "Time left in your workday, plus cursor mileage"},
    {"tasks", "Tasks", "checkmark.circle", "Your open tasks"},
    {"notes", "Notes", "note.text", "Your latest notes"},
    {"reminders", "Reminders", "bell", "Apple Reminders due soon"},
    {"quickToggles", "Quick toggles", "switch.2", "Dark mode, keep awake, lock and more"},
    {"music", "Music", "music.note", "What's playing, with controls"},
    {"aiUsage", "AI Usage", "sparkles", "Today's tokens, cost and the 5-hour window"},
    {"systemStats", "System", "chart.bar.fill", "CPU, memory and battery"},
    {"shelf", "Shelf", "tray.full", "Files on the Shelf, ready to drag"},
    {"screenTime", "Screen Time", "hourglass", "Time on screen today and your top app"},
    {"devServers", "Dev Servers", "server.rack", "Your localhost servers, one click to open"},
}};

constexpr auto kRawNames = [] {
    std::array<std::string_view, kDashTileCount> names{};
    for (std::size_t i = 0; i < kDashTileCount; ++i) names[i] = kTiles[i].raw;
    return names;
}();

constexpr auto kAllTiles = allCasesOf<DashTile, kDashTileCount>();

}  // namespace

const DashTileInfo& info(DashTile tile) {
    return kTiles[static_cast<std::size_t>(tile)];
}

std::optional<DashTile> dashTileFromRaw(std::string_view raw) {
    return enumFromRaw<DashTile>(kRawNames, raw);
}

std::optional<NotchTab> toolForTile(DashTile tile) {
    switch (tile) {
        case DashTile::today:
            return NotchTab::today;
        case DashTile::pomodoro:
        case DashTile::dayProgress:
            return NotchTab::focus;
        case DashTile::tasks:
            return NotchTab::tasks;
        case DashTile::notes:
            return NotchTab::notes;
        case DashTile::reminders:
            return NotchTab::reminders;
        case DashTile::music:
            return NotchTab::music;
        case DashTile::aiUsage:
            return NotchTab::aiUsage;
        case DashTile::systemStats:
            return NotchTab::stats;
        case DashTile::shelf:
            return NotchTab::shelf;
        case DashTile::screenTime:
            return NotchTab::screenTime;
        case DashTile::devServers:
            return NotchTab::devServers;
        case DashTile::launcher:
        case DashTile::quickToggles:
            return std::nullopt;
    }
    return std::nullopt;
}

std::vector<DashTile> defaultDashTiles() {
    return {kAllTiles.begin(), kAllTiles.begin() + kDashboardSlots};
}

std::vector<DashTile> normalizedDashTiles(const std::vector<DashTile>& tiles) {
    std::vector<DashTile> result;
    auto addIfNew = [&result](DashTile tile) {
        if (std::find(result.begin(), result.end(), tile) == result.end()) result.push_back(tile);
    };
    for (DashTile tile : tiles) addIfNew(tile);
    for (DashTile tile : defaultDashTiles()) {
        if (result.size() >= kDashboardSlots) break;
        addIfNew(tile);
    }
    for (DashTile tile : kAllTiles) {
        if (result.size() >= kDashboardSlots) break;
        addIfNew(tile);
    }
    if (result.size() > kDashboardSlots) result.resize(kDashboardSlots);
    return result;
}

}  // namespace vantrelle
