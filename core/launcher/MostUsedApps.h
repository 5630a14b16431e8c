#pragma once

#include <filesystem>
#include <string>
#include <vector>

#include "monitors/AppUsage.h"
#include "platform/Date.h"

namespace vantrelle {

// Desktop ids by screen time, most used first (ties by id): today's figures from memory plus the day
// files of the `days` days before today in `screenTimeFolder`. Missing or unreadable files count as
// empty days; the files are only read.
[[nodiscard]] std::vector<std::string> mostUsedApps(const std::filesystem::path& screenTimeFolder, Date now,
                                                    int days, const std::vector<AppUsage>& today);

}  // namespace vantrelle
