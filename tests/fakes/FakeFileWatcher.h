#pragma once

#include <filesystem>
#include <functional>
#include <memory>

#include "platform/FileWatcher.h"

namespace vantrelle::testing {

// Hands the test the watch's callback: the test calls `wake()` after each real change it makes.
class FakeFileWatcher final : public FileWatcher {
public:
    std::unique_ptr<FileWatch> watchFile(const std::filesystem::path&,
                                         std::function<void()> onChange) override {
        if (refuse) return nullptr;
        wake = std::move(onChange);
        return std::make_unique<FileWatch>();
    }
    std::unique_ptr<FileWatch> watchFolder(const std::filesystem::path&,
                                           std::function<void()> onChange) override {
        if (refuse) return nullptr;
        wakeFolder = std::move(onChange);
        return std::make_unique<FileWatch>();
    }

    std::function<void()> wake;
    std::function<void()> wakeFolder;
    bool refuse = false;  // as for a file that can't be watched
};

}  // namespace vantrelle::testing
