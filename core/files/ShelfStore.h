#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "activity/LiveActivityCenter.h"
#include "files/ImageConverter.h"
#include "files/ShelfItem.h"
#include "platform/Clock.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"
#include "support/Signal.h"
#include "support/StoreFile.h"

namespace vantrelle {

// The shelf: files the user dropped on the notch or the watchers found, newest first, kept as
// bookmarks in one JSON file. Also runs image conversions of its items on the "shelf" queue. Main
// thread only, apart from the work it queues.
class ShelfStore {
public:
    static constexpr std::size_t kCapacity = 30;
    static constexpr double kMessageSeconds = 4.0;
    static constexpr double kConvertedFlashSeconds = 3.0;
    // A file dragged out carries its bytes too, for apps that take only data, up to this size;
    // a larger one goes as its address alone and is never read into memory.
    static constexpr std::int64_t kDragContentLimit = 64LL * 1024 * 1024;

    struct Dependencies {
        std::filesystem::path file;
        const Clock& clock;
        Scheduler& scheduler;
        QueueFactory& queues;
        LiveActivityCenter& activities;
        const ImageConverter& converter;
        bool demoMode = false;
        // In demo mode the shelf starts from these and writes nothing.
        std::vector<std::filesystem::path> demoFiles;
    };

    explicit ShelfStore(Dependencies deps);
    ~ShelfStore();
    ShelfStore(const ShelfStore&) = delete;
    ShelfStore& operator=(const ShelfStore&) = delete;

    [[nodiscard]] static std::filesystem::path defaultFile(const std::filesystem::path& dataRoot) {
        return dataRoot / "shelf.json";
    }
    [[nodiscard]] static std::filesystem::path demoFile();

    [[nodiscard]] const std::vector<ShelfItem>& items() const { return m_items; }
    [[nodiscard]] const std::set<std::string>& busy() const { return m_busy; }
    [[nodiscard]] const std::optional<std::string>& converting() const { return m_converting; }
    [[nodiscard]] const std::optional<std::string>& convertMessage() const { return m_message; }
    [[nodiscard]] const ShelfItem* item(const std::string& id) const;

    // Adds existing files, skipping those already on the shelf (compared by normalised path); the last
    // one given ends up on top, and the oldest fall off past 30.
    void add(const std::vector<std::filesystem::path>& files);
    // The same for "file://" URLs, as a drop delivers them; other URLs are skipped.
    void addUrls(const std::vector<std::string>& urls);
    void remove(const std::string& id);
    void clear();

    // Opens (or, with nothing, closes) the conversion strip under one item.
    void setConverting(std::optional<std::string> id);
    [[nodiscard]] std::vector<ImageConversion> conversionOptions(const std::string& id) const;
    // Starts one conversion; nothing while the item's previous one still runs or its file is gone.
    void convert(const std::string& id, ImageConversion conversion);
    // Shows the line under the shelf for 4 seconds; a new message replaces the old and gets its own 4.
    void showMessage(std::string text);

    Signal<> changed;

private:
    void load();
    [[nodiscard]] bool parse(const std::string& text);
    void save();
    void conversionFinished(const std::string& id,
                            const std::variant<std::filesystem::path, ImageConverter::Failure>& result);

    Dependencies m_deps;
    StoreFile m_file;
    std::vector<ShelfItem> m_items;
    std::set<std::string> m_busy;
    std::optional<std::string> m_converting;
    std::optional<std::string> m_message;
    WorkItem m_messageWork;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::unique_ptr<SerialQueue> m_queue;  // last: joins before the state its work reads goes
};

// "12 KB", "3.4 MB": decimal units, as file managers show sizes.
[[nodiscard]] std::string formatFileSize(std::uintmax_t bytes);

}  // namespace vantrelle
