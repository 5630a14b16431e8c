#pragma once

#include <filesystem>
#include <functional>
#include <map>
#include <memory>

#include "platform/FileWatcher.h"

namespace vantrelle::testing {

// Folder watches the test wakes by hand, as inotify would after a change; a dropped watch counts itself out.
class FolderWatches final : public FileWatcher {
public:
    std::unique_ptr<FileWatch> watchFile(const std::filesystem::path&, std::function<void()>) override {
        return nullptr;
    }
    std::unique_ptr<FileWatch> watchFolder(const std::filesystem::path& folder,
                                           std::function<void()> onChange) override {
        wakes[folder] = std::move(onChange);
        return std::make_unique<Watch>(++live[folder]);
    }
    std::map<std::filesystem::path, std::function<void()>> wakes;
    std::map<std::filesystem::path, int> live;  // open watches per folder

private:
    struct Watch final : FileWatch {
        explicit Watch(int& counter) : count(counter) {}
        ~Watch() override { --count; }
        int& count;
    };
};

}  // namespace vantrelle::testing
