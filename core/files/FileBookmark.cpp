#include "files/FileBookmark.h"

#include <dirent.h>
#include <sys/stat.h>

#include <array>
#include <cstdint>
#include <cstring>
#include <string_view>

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

// "VBM1", then the device and the inode as 64-bit little-endian numbers, then the path's bytes.
constexpr std::array<std::uint8_t, 4> kMagic{'V', 'B', 'M', '1'};
constexpr std::size_t kHeaderSize = kMagic.size() + 16;

struct Parsed {
    std::uint64_t device = 0;
    std::uint64_t inode = 0;
    fs::path path;
};

void putNumber(Bytes& out, std::uint64_t value) {
    for (int i = 0; i < 8; ++i) out.push_back(static_cast<std::uint8_t>(value >> (8 * i)));
}

std::uint64_t getNumber(const Bytes& in, std::size_t at) {
    std::uint64_t value = 0;
    for (int i = 0; i < 8; ++i)
        value |= static_cast<std::uint64_t>(in[at + static_cast<std::size_t>(i)]) << (8 * i);
    return value;
}

std::optional<Parsed> parse(const Bytes& bookmark) {
    if (bookmark.size() <= kHeaderSize || !std::equal(kMagic.begin(), kMagic.end(), bookmark.begin()))
        return std::nullopt;
    Parsed parsed;
    parsed.device = getNumber(bookmark, kMagic.size());
    parsed.inode = getNumber(bookmark, kMagic.size() + 8);
    parsed.path = std::string(bookmark.begin() + static_cast<std::ptrdiff_t>(kHeaderSize), bookmark.end());
    if (!parsed.path.is_absolute()) return std::nullopt;
    return parsed;
}

// The entry of `folder` that is the same file, found by a walk of that one folder.
std::optional<fs::path> findInode(const fs::path& folder, std::uint64_t device, std::uint64_t inode) {
    DIR* dir = ::opendir(folder.c_str());
    if (!dir) return std::nullopt;
    std::optional<fs::path> found;
    while (const dirent* entry = ::readdir(dir)) {
        if (entry->d_ino != inode) continue;  // cheap filter; d_ino may differ on overlays, so confirm
        const fs::path candidate = folder / entry->d_name;
        struct stat info {};
        if (::lstat(candidate.c_str(), &info) == 0 && info.st_dev == device && info.st_ino == inode) {
            found = candidate;
            break;
        }
    }
    ::closedir(dir);
    return found;
}

}  // namespace

std::optional<Bytes> makeFileBookmark(const fs::path& file) {
    if (!file.is_absolute()) return std::nullopt;
    struct stat info {};
    if (::stat(file.c_str(), &info) != 0) return std::nullopt;
    Bytes bookmark(kMagic.begin(), kMagic.end());
    putNumber(bookmark, static_cast<std::uint64_t>(info.st_dev));
    putNumber(bookmark, static_cast<std::uint64_t>(info.st_ino));
    const std::string& text = file.native();
    bookmark.insert(bookmark.end(), text.begin(), text.end());
    return bookmark;
}

std::optional<fs::path> resolveFileBookmark(const Bytes& bookmark) {
    auto parsed = parse(bookmark);
    if (!parsed) return std::nullopt;
    struct stat info {};
    if (::stat(parsed->path.c_str(), &info) == 0) return parsed->path;
    return findInode(parsed->path.parent_path(), parsed->device, parsed->inode);
}

}  // namespace vantrelle
