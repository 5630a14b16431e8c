#pragma once

#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace vantrelle {

// The suffix that marks a file as still downloading (".download", ".crdownload", ".part",
// ".partial", ".tmp", tested in that order, ignoring case), or nothing.
[[nodiscard]] std::optional<std::string_view> markerSuffix(std::string_view fileName);

// The name the download will have: the marker's name without its suffix, or the whole name when
// nothing would be left.
[[nodiscard]] std::string markerDisplayName(std::string_view fileName, std::string_view suffix);

struct MarkerProgress {
    std::int64_t bytes = 0;
    std::optional<std::int64_t> total;
    [[nodiscard]] std::optional<double> fraction() const;
};

// What is written so far: a bundle folder counts the sizes of its direct children; a plain marker its
// own size. No marker format here records the total, so it stays unknown.
[[nodiscard]] MarkerProgress markerProgress(const std::filesystem::path& marker);

}  // namespace vantrelle
