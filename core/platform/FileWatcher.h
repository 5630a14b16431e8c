#pragma once

#include <filesystem>
#include <functional>
#include <memory>

namespace vantrelle {

// A live watch; dropping it stops the watching.
class FileWatch {
public:
    virtual ~FileWatch() = default;
};

// Wakes on changes to one file or folder, without polling.
class FileWatcher {
public:
    virtual ~FileWatcher() = default;
    // Calls `onChange` on the main thread when the file is written, extended, truncated, deleted or
    // renamed. Nothing when the file cannot be watched. After a delete or rename the watch is spent.
    [[nodiscard]] virtual std::unique_ptr<FileWatch> watchFile(const std::filesystem::path& file,
                                                               std::function<void()> onChange) = 0;

    // Calls `onChange` on the main thread when an entry directly inside `folder` is created, deleted,
    // renamed, or closed after writing; writes into a file that stays open raise nothing. Nothing when
    // the folder cannot be watched (or the watcher can't watch folders).
    [[nodiscard]] virtual std::unique_ptr<FileWatch> watchFolder(
        const std::filesystem::path& /*folder*/,
        // NOLINTNEXTLINE(performance-unnecessary-value-param)
        std::function<void()> /*onChange*/) {
        return nullptr;
    }
};

}  // namespace vantrelle
