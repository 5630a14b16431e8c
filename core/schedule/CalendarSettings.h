#pragma once

#include <algorithm>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "platform/DefaultsStore.h"

namespace vantrelle::CalendarSettings {

// More calendar folders beside the default ones, as the user added them.
inline constexpr std::string_view kFoldersKey = "calendarFolders";
// The user's own addresses, which pick "the current user" out of an event's attendees.
inline constexpr std::string_view kAddressesKey = "calendarUserAddresses";

// The default folders under `dataHome`, then the user's own, each once.
[[nodiscard]] inline std::vector<std::filesystem::path> folders(const DefaultsStore& defaults,
                                                                const std::filesystem::path& dataHome) {
    std::vector<std::filesystem::path> result{dataHome / "calendars", dataHome / "evolution" / "calendar"};
    for (const auto& folder : defaults.stringArray(kFoldersKey).value_or(std::vector<std::string>{})) {
        if (folder.empty()) continue;
        if (std::find(result.begin(), result.end(), std::filesystem::path(folder)) == result.end()) {
            result.emplace_back(folder);
        }
    }
    return result;
}

[[nodiscard]] inline std::vector<std::string> userAddresses(const DefaultsStore& defaults) {
    return defaults.stringArray(kAddressesKey).value_or(std::vector<std::string>{});
}

}  // namespace vantrelle::CalendarSettings
