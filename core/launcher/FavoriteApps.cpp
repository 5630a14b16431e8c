#include "launcher/FavoriteApps.h"

#include <algorithm>

namespace vantrelle {

std::string desktopIdOf(std::string_view fileName) {
    constexpr std::string_view kSuffix = ".desktop";
    if (!fileName.ends_with(kSuffix) || fileName.size() == kSuffix.size()) return {};
    fileName.remove_suffix(kSuffix.size());
    // A path or a control character is not an id: it would leave the applications folders.
    const bool plain = std::none_of(fileName.begin(), fileName.end(), [](char c) {
        return c == '/' || c == '\\' || static_cast<unsigned char>(c) < 0x20;
    });
    return plain && fileName != "." && fileName != ".." ? std::string(fileName) : std::string();
}

std::vector<std::string> parseGnomeFavorites(std::string_view text) {
    std::vector<std::string> ids;
    const std::size_t open = text.find('[');
    if (open == std::string_view::npos) return ids;
    std::size_t i = open + 1;
    while (i < text.size() && text[i] != ']') {
        const char quote = text[i];
        if (quote != '\'' && quote != '"') {
            ++i;
            continue;
        }
        std::string value;
        bool closed = false;
        for (++i; i < text.size(); ++i) {
            if (text[i] == '\\' && i + 1 < text.size()) {
                value += text[++i];
            } else if (text[i] == quote) {
                closed = true;
                ++i;
                break;
            } else {
                value += text[i];
            }
        }
        if (!closed) break;  // cut off: what came before still counts
        if (auto id = desktopIdOf(value); !id.empty() && std::find(ids.begin(), ids.end(), id) == ids.end())
            ids.push_back(std::move(id));
    }
    return ids;
}

std::vector<std::string> parseKdeLaunchers(std::string_view text) {
    std::vector<std::string> ids;
    while (!text.empty()) {
        const std::size_t end = text.find('\n');
        std::string_view line = text.substr(0, end);
        text.remove_prefix(end == std::string_view::npos ? text.size() : end + 1);
        if (!line.empty() && line.back() == '\r') line.remove_suffix(1);
        constexpr std::string_view kKey = "launchers=";
        if (!line.starts_with(kKey)) continue;
        line.remove_prefix(kKey.size());
        while (!line.empty()) {
            const std::size_t comma = line.find(',');
            std::string_view item = line.substr(0, comma);
            line.remove_prefix(comma == std::string_view::npos ? line.size() : comma + 1);
            constexpr std::string_view kScheme = "applications:";
            if (!item.starts_with(kScheme)) continue;
            item.remove_prefix(kScheme.size());
            if (auto id = desktopIdOf(item);
                !id.empty() && std::find(ids.begin(), ids.end(), id) == ids.end())
                ids.push_back(std::move(id));
        }
        if (!ids.empty()) break;
    }
    return ids;
}

}  // namespace vantrelle
