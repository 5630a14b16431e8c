#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <map>
#include <memory>
#include <optional>
#include <string>

#include "activity/AgentAlertKind.h"
#include "activity/LiveActivityCenter.h"
#include "catalog/AppSettings.h"
#include "platform/Clock.h"
#include "platform/FileWatcher.h"
#include "platform/SoundPlayer.h"
#include "support/NotificationCenter.h"

namespace vantrelle {

// Makes the notch flash when Claude Code wants the user. The installed hook appends every payload as
// one JSON line to the events file; the center wakes on appends, reads only the new whole lines,
// keeps one pending alert per session and shows the most urgent one. Main thread only.
class ClaudeAlertCenter {
public:
    struct Dependencies {
        std::filesystem::path eventsFile;
        Scheduler& scheduler;
        const Clock& clock;
        LiveActivityCenter& activities;
        NotificationCenter& notifications;
        const AppSettings& settings;
        SoundPlayer& sounds;
        FileWatcher& watcher;
        // Asks whether our hooks are in Claude Code's settings; the answer comes later, on the main thread.
        std::function<void(std::function<void(bool)>)> hooksInstalled;
        bool demoMode = false;
        // The modification date of a transcript; nothing when it cannot be read.
        std::function<std::optional<Date>(const std::filesystem::path&)> modificationDate =
            fileModificationDate;
    };

    struct Alert {
        std::string sessionId;
        std::string project;
        AgentAlertKind kind = AgentAlertKind::approval;
        Date at;
        std::optional<std::filesystem::path> transcript;
        bool operator==(const Alert&) const = default;
    };

    static constexpr double kStaleAfter = 1800;
    static constexpr double kSweepInterval = 2;
    static constexpr std::uint64_t kTrimSize = 32'769;

    explicit ClaudeAlertCenter(Dependencies dependencies);
    [[nodiscard]] static ClaudeAlertCenter& shared();

    void start();
    // Reads what was appended since the last read; the watcher calls it.
    void readNew();

    [[nodiscard]] const std::map<std::string, Alert>& alerts() const { return m_alerts; }
    [[nodiscard]] std::uint64_t offset() const { return m_offset; }
    [[nodiscard]] bool isSweeping() const { return m_sweep.has_value(); }

    [[nodiscard]] static std::optional<Date> fileModificationDate(const std::filesystem::path& file);

private:
    void handle(const std::string& line);
    void store(Alert alert, const std::string& notificationType);
    void publish();
    void sweepAnswered();
    void trimIfLarge(std::uint64_t size);

    Dependencies m_d;
    std::map<std::string, Alert> m_alerts;
    std::unique_ptr<FileWatch> m_watch;
    std::uint64_t m_offset = 0;
    std::optional<RepeatingTimer> m_sweep;
    bool m_started = false;
};

}  // namespace vantrelle
