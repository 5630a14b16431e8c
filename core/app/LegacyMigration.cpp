#include "app/LegacyMigration.h"

#include <fcntl.h>
#include <sys/stat.h>

#include "support/DebugLog.h"

namespace vantrelle {

namespace fs = std::filesystem;

namespace {

bool isEmptyFolder(const fs::path& folder) {
    std::error_code error;
    fs::directory_iterator it(folder, error);
    return !error && it == fs::directory_iterator();
}

// rename() when both sides share a file system, a copy and a removal otherwise.
bool moveItem(const fs::path& from, const fs::path& to) {
    std::error_code error;
    fs::rename(from, to, error);
    if (!error) return true;
    if (error != std::errc::cross_device_link) return false;
    fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::overwrite_existing, error);
    if (error) return false;
    fs::remove_all(from, error);
    return true;
}

}  // namespace

std::optional<Date> LegacyMigration::fileCreationDate(const fs::path& path) {
    struct statx info {};
    if (::statx(AT_FDCWD, path.c_str(), 0, STATX_BTIME, &info) != 0 || !(info.stx_mask & STATX_BTIME)) {
        return std::nullopt;
    }
    return Date{static_cast<double>(info.stx_btime.tv_sec) + info.stx_btime.tv_nsec / 1e9};
}

void LegacyMigration::migrate(const fs::path& legacy, const fs::path& current) const {
    std::error_code error;
    if (!fs::exists(legacy, error)) return;  // a clean install, or a migration already finished
    fs::create_directories(current, error);
    merge(legacy, current);
    if (isEmptyFolder(legacy)) fs::remove(legacy, error);
    DebugLog::write([&] { return "launch: migrated " + legacy.string() + " into " + current.string(); });
}

void LegacyMigration::merge(const fs::path& source, const fs::path& destination) const {
    std::error_code error;
    fs::directory_iterator items(source, error);
    if (error) return;
    for (const auto& item : items) {
        const fs::path target = destination / item.path().filename();
        std::error_code itemError;
        const bool isDirectory = item.is_directory(itemError) && !item.is_symlink(itemError);
        if (!fs::exists(fs::symlink_status(target, itemError))) {
            moveItem(item.path(), target);
            continue;
        }
        // A folder on one side and a file on the other: keep both as they are.
        if (isDirectory != fs::is_directory(target, itemError)) continue;
        if (isDirectory) {
            merge(item.path(), target);
            if (isEmptyFolder(item.path())) fs::remove(item.path(), itemError);
            continue;
        }
        const Date created = m_creationDate(target).value_or(Date::distantPast());
        if (m_clock.now() - created < kFreshFileAge) moveItem(item.path(), target);
    }
}

}  // namespace vantrelle
