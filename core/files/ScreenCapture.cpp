#include "files/ScreenCapture.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <cstdint>
#include <fstream>
#include <string_view>

#include "files/FileUrl.h"
#include "files/UserDirs.h"
#include "support/ReadFile.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

constexpr std::array<unsigned char, 8> kPngSignature{0x89, 'P', 'N', 'G', '\r', '\n', 0x1a, '\n'};
// Text chunks are small; anything larger is not one we read.
constexpr std::uint32_t kMaxTextChunk = 64 * 1024;
constexpr int kMaxChunks = 4096;

std::uint32_t bigEndian(const std::array<unsigned char, 8>& bytes, std::size_t at) {
    return (std::uint32_t{bytes[at]} << 24) | (std::uint32_t{bytes[at + 1]} << 16) |
           (std::uint32_t{bytes[at + 2]} << 8) | std::uint32_t{bytes[at + 3]};
}

// The text of a tEXt chunk, or of an uncompressed iTXt chunk, when its keyword is "Software".
std::optional<std::string> softwareValue(std::string_view type, std::string_view data) {
    const auto nul = data.find('\0');
    if (nul == std::string_view::npos || data.substr(0, nul) != "Software") return std::nullopt;
    std::string_view rest = data.substr(nul + 1);
    if (type == "tEXt") return std::string(rest);
    // iTXt: compression flag, method, language tag NUL, translated keyword NUL, text.
    if (rest.size() < 2 || rest[0] != 0) return std::nullopt;
    rest.remove_prefix(2);
    for (int field = 0; field < 2; ++field) {
        const auto end = rest.find('\0');
        if (end == std::string_view::npos) return std::nullopt;
        rest.remove_prefix(end + 1);
    }
    return std::string(rest);
}

std::string lower(std::string_view text) {
    std::string out(text);
    std::transform(out.begin(), out.end(), out.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return out;
}

std::optional<fs::path> existingFolder(const fs::path& path) {
    std::error_code error;
    if (path.is_absolute() && fs::is_directory(path, error)) return path;
    return std::nullopt;
}

// Spectacle keeps its folder in spectaclerc, as a file URL or a path, under one of two key names
// depending on its version.
std::optional<fs::path> spectacleFolder(const AppPaths& paths) {
    const auto text = readWholeFile(paths.configHome / "spectaclerc");
    if (!text) return std::nullopt;
    std::string_view rest = *text;
    std::optional<fs::path> found;
    while (!rest.empty()) {
        const auto end = rest.find('\n');
        std::string_view line = rest.substr(0, end);
        rest = end == std::string_view::npos ? std::string_view{} : rest.substr(end + 1);
        for (std::string_view key : {"imageSaveLocation=", "defaultSaveLocation="}) {
            if (!line.starts_with(key)) continue;
            std::string value(line.substr(key.size()));
            while (!value.empty() && (value.back() == '\r' || value.back() == ' ')) value.pop_back();
            auto path = value.starts_with("file:") ? pathFromFileUrl(value) : std::optional<fs::path>(value);
            if (path) found = existingFolder(*path);
        }
    }
    return found;
}

}  // namespace

std::optional<std::string> pngSoftwareText(const fs::path& file) {
    std::ifstream in(file, std::ios::binary);
    std::array<unsigned char, 8> header{};
    if (!in.read(reinterpret_cast<char*>(header.data()), header.size()) || header != kPngSignature)
        return std::nullopt;
    for (int chunk = 0; chunk < kMaxChunks; ++chunk) {
        if (!in.read(reinterpret_cast<char*>(header.data()), header.size())) return std::nullopt;
        const std::uint32_t length = bigEndian(header, 0);
        const std::string type(reinterpret_cast<const char*>(header.data()) + 4, 4);
        if (type == "IEND") return std::nullopt;
        if ((type == "tEXt" || type == "iTXt") && length <= kMaxTextChunk) {
            std::string data(length, '\0');
            if (!in.read(data.data(), length)) return std::nullopt;
            if (auto value = softwareValue(type, data)) return value;
            in.seekg(4, std::ios::cur);  // CRC
        } else {
            in.seekg(static_cast<std::streamoff>(length) + 4, std::ios::cur);
        }
    }
    return std::nullopt;
}

bool isScreenCapture(const fs::path& file) {
    static constexpr std::array<std::string_view, 6> kTools{"gnome-screenshot", "gnome-shell", "spectacle",
                                                            "flameshot",        "grim",        "scrot"};
    const auto software = pngSoftwareText(file);
    if (!software) return false;
    const std::string name = lower(*software);
    return std::any_of(kTools.begin(), kTools.end(), [&](std::string_view tool) {
        // The tool's name as a word at the start: "grim" but not "grimoire-editor".
        return name.starts_with(tool) &&
               (name.size() == tool.size() || !std::isalnum(static_cast<unsigned char>(name[tool.size()])));
    });
}

fs::path screenshotFolder(const Environment& environment, const AppPaths& paths) {
    if (auto hook = environment.get("VANTRELLE_SCREENSHOT_DIR"); hook && !hook->empty()) return *hook;
    fs::path pictures = xdgUserDir(paths, "PICTURES").value_or(paths.home / "Pictures");
    if (auto gnome = existingFolder(pictures / "Screenshots")) return *gnome;
    if (auto spectacle = spectacleFolder(paths)) return *spectacle;
    return pictures;
}

}  // namespace vantrelle
