#include "notes/LegacyNotes.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "support/ReadFile.h"

namespace vantrelle {

namespace {

Date fromStatx(const struct statx_timestamp& stamp) {
    return Date{static_cast<double>(stamp.tv_sec) + static_cast<double>(stamp.tv_nsec) * 1e-9};
}

}  // namespace

std::optional<LegacyNotesFile> readLegacyNotes(const std::filesystem::path& file) {
    ReadResult read = readRegularFile(file);
    if (read.status != ReadResult::Status::ok) return std::nullopt;
    LegacyNotesFile legacy{std::move(read.contents), std::nullopt, std::nullopt};
    struct statx info {};
    if (::statx(AT_FDCWD, file.c_str(), 0, STATX_BTIME | STATX_MTIME, &info) == 0) {
        if ((info.stx_mask & STATX_BTIME) != 0) legacy.created = fromStatx(info.stx_btime);
        if ((info.stx_mask & STATX_MTIME) != 0) legacy.modified = fromStatx(info.stx_mtime);
    }
    return legacy;
}

std::filesystem::path migratedLegacyPath(const std::filesystem::path& file) {
    return std::filesystem::path(file.string() + ".migrated");
}

}  // namespace vantrelle
