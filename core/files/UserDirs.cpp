#include "files/UserDirs.h"

#include "support/ReadFile.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

std::string_view trim(std::string_view text) {
    while (!text.empty() && (text.front() == ' ' || text.front() == '\t')) text.remove_prefix(1);
    while (!text.empty() && (text.back() == ' ' || text.back() == '\t' || text.back() == '\r'))
        text.remove_suffix(1);
    return text;
}

fs::path withoutTrailingSlash(const fs::path& path) {
    fs::path normal = path.lexically_normal();
    if (!normal.has_filename() && normal != normal.root_path()) normal = normal.parent_path();
    return normal;
}

std::optional<fs::path> parseValue(std::string_view value, const fs::path& home) {
    if (value.size() < 2 || value.front() != '"' || value.back() != '"') return std::nullopt;
    value = value.substr(1, value.size() - 2);
    std::string path;
    if (value.starts_with("$HOME")) {
        path = home.string() + std::string(value.substr(5));
    } else {
        path = std::string(value);
    }
    std::string unescaped;
    for (std::size_t i = 0; i < path.size(); ++i) {
        if (path[i] == '\\' && i + 1 < path.size()) ++i;
        unescaped.push_back(path[i]);
    }
    const fs::path result = withoutTrailingSlash(unescaped);
    // "$HOME/" means the user turned the folder off.
    if (!result.is_absolute() || result == withoutTrailingSlash(home)) return std::nullopt;
    return result;
}

}  // namespace

std::optional<fs::path> xdgUserDir(const AppPaths& paths, std::string_view name) {
    const ReadResult file = readRegularFile(paths.configHome / "user-dirs.dirs");
    if (file.status != ReadResult::Status::ok) return std::nullopt;
    const std::string key = "XDG_" + std::string(name) + "_DIR";
    std::optional<fs::path> found;
    std::string_view text = file.contents;
    while (!text.empty()) {
        const auto end = text.find('\n');
        const std::string_view line = trim(text.substr(0, end));
        text = end == std::string_view::npos ? std::string_view{} : text.substr(end + 1);
        if (line.starts_with('#') || !line.starts_with(key)) continue;
        std::string_view rest = trim(line.substr(key.size()));
        if (!rest.starts_with('=')) continue;
        found = parseValue(trim(rest.substr(1)), paths.home);  // the last assignment wins, as in a shell
    }
    return found;
}

fs::path downloadsFolder(const AppPaths& paths) {
    return xdgUserDir(paths, "DOWNLOAD").value_or(paths.home / "Downloads");
}

}  // namespace vantrelle
