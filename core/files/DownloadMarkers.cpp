#include "files/DownloadMarkers.h"

#include <algorithm>
#include <array>
#include <cctype>

namespace vantrelle {

namespace fs = std::filesystem;

std::optional<std::string_view> markerSuffix(std::string_view fileName) {
    static constexpr std::array<std::string_view, 5> kSuffixes{".download", ".crdownload", ".part",
                                                               ".partial", ".tmp"};
    std::string lower(fileName);
    std::transform(lower.begin(), lower.end(), lower.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    for (std::string_view suffix : kSuffixes) {
        if (lower.ends_with(suffix)) return suffix;
    }
    return std::nullopt;
}

std::string markerDisplayName(std::string_view fileName, std::string_view suffix) {
    if (fileName.size() <= suffix.size()) return std::string(fileName);
    return std::string(fileName.substr(0, fileName.size() - suffix.size()));
}

std::optional<double> MarkerProgress::fraction() const {
    if (!total || *total <= 0) return std::nullopt;
    return std::min(1.0, static_cast<double>(bytes) / static_cast<double>(*total));
}

MarkerProgress markerProgress(const fs::path& marker) {
    MarkerProgress progress;
    std::error_code error;
    if (fs::is_directory(marker, error)) {
        for (fs::directory_iterator it(marker, error), end; !error && it != end; it.increment(error)) {
            std::error_code sizeError;
            const auto size = fs::file_size(it->path(), sizeError);
            if (!sizeError) progress.bytes += static_cast<std::int64_t>(size);
        }
        return progress;
    }
    const auto size = fs::file_size(marker, error);
    if (!error) progress.bytes = static_cast<std::int64_t>(size);
    return progress;
}

}  // namespace vantrelle
