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

// Wakes on changes to one file, without polling.
class FileWatcher {
public:
    virtual ~FileWatcher() = default;
    // Calls `onChange` on the main thread when the file is written, extended, truncated, deleted or
    // renamed. Nothing when the file cannot be watched. After a delete or rename the watch is spent.
    [[nodiscard]] virtual std::unique_ptr<FileWatch> watchFile(const std::filesystem::path& file,
                                                               std::function<void()> onChange) = 0;
    // Calls `onChange` on the main thread when an entry of the folder is created, written, renamed or
    // deleted, or the folder itself goes. Nothing when the folder cannot be watched (or the watcher
    // watches files only).
    [[nodiscard]] virtual std::unique_ptr<FileWatch> watchFolder(const std::filesystem::path& /*folder*/,
                                                                 std::function<void()> /*onChange*/) {
        return nullptr;
    }
};

}  // namespace vantrelle
