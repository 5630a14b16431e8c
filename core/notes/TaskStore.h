#pragma once

#include <cstddef>
#include <filesystem>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "notes/TodoItem.h"
#include "platform/Clock.h"
#include "support/Signal.h"
#include "support/StoreFile.h"

namespace vantrelle {

// The local to-do list: one array in "tasks.json" in the data root, saved at once after every change.
// In demo mode the items are canned and nothing is read or written. Main thread only.
class TaskStore {
public:
    // The Dashboard tile lists this many of the open items.
    static constexpr std::size_t kOpenShown = 3;

    struct Dependencies {
        std::filesystem::path dataRoot;  // the "Vantrelle" data folder
        std::filesystem::path tempDir;   // demo mode's file lies here
        const Clock& clock;
        bool demoMode = false;
        std::function<std::string()> makeId;  // a new item's id; a random UUID when empty
    };

    explicit TaskStore(Dependencies dependencies);
    TaskStore(const TaskStore&) = delete;
    TaskStore& operator=(const TaskStore&) = delete;

    [[nodiscard]] const std::vector<TodoItem>& items() const { return m_items; }
    // In list order.
    [[nodiscard]] std::vector<TodoItem> openItems() const;
    [[nodiscard]] std::vector<TodoItem> doneItems() const;
    [[nodiscard]] const std::filesystem::path& filePath() const { return m_file.path(); }

    // The panel's add action: appends an open item with the trimmed title. A blank title adds nothing.
    bool add(std::string_view title);
    // Done becomes open and open done, with the moment it was done. An unknown id changes nothing.
    void toggle(std::string_view id);
    void remove(std::string_view id);
    void clearDone();

    // Emitted after any change of the items.
    Signal<> changed;

private:
    void save();

    const Clock& m_clock;
    bool m_demo;
    std::function<std::string()> m_makeId;
    StoreFile m_file;
    std::vector<TodoItem> m_items;
};

}  // namespace vantrelle
