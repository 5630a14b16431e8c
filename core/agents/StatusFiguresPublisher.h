#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>

#include "agents/StatusFigures.h"
#include "platform/Scheduler.h"

namespace vantrelle {

// Keeps the latest status figures in memory for instant answers, and in a file for the processes that
// run while the app's socket is busy or gone. The file is written only when a figure changed, at most
// once per debounce interval, atomically. Main thread only.
class StatusFiguresPublisher {
public:
    using Writer = std::function<bool(const std::filesystem::path&, const std::string&)>;

    static constexpr double kDebounceSeconds = 2.0;

    // `writer` replaces the file whole and reports success; the default writes atomically.
    StatusFiguresPublisher(std::filesystem::path file, Scheduler& scheduler, Writer writer = {});
    ~StatusFiguresPublisher();
    StatusFiguresPublisher(const StatusFiguresPublisher&) = delete;
    StatusFiguresPublisher& operator=(const StatusFiguresPublisher&) = delete;

    void update(StatusFigures figures);
    // Writes a pending change now; at the end of the process.
    void flush();

    [[nodiscard]] const std::optional<StatusFigures>& current() const { return m_current; }
    [[nodiscard]] const std::filesystem::path& file() const { return m_file; }

private:
    void write();

    std::filesystem::path m_file;
    Scheduler& m_scheduler;
    Writer m_writer;
    std::optional<StatusFigures> m_current;
    std::optional<StatusFigures> m_written;
    std::optional<WorkItem> m_pending;
};

}  // namespace vantrelle
