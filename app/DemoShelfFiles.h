#pragma once

#include <filesystem>
#include <vector>

namespace vantrelle {

// Invented files for demo mode's shelf, written into `folder` (made fresh each time): two drawn images
// and a few documents of a developer's day. Sorted by name.
[[nodiscard]] std::vector<std::filesystem::path> writeDemoShelfFiles(const std::filesystem::path& folder);

}  // namespace vantrelle
