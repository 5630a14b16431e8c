#pragma once

#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "agents/AILogSnapshot.h"
#include "agents/AIUsageFigures.h"
#include "agents/ClaudeCodeLog.h"
#include "platform/Environment.h"
#include "platform/ProcessTable.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"
#include "support/Signal.h"

namespace vantrelle {

class AppSettings;
class LiveActivityCenter;
class WrappedHistory;

// Everything shown about coding agents: scans the logs on the "aiusage" queue, polls the process
// list for the agents alive, and reduces the events to today's totals, the last seven days, the
// current 5-hour window and the session list. Main thread only, apart from the work it queues.
class AIUsageModel {
public:
    struct Dependencies {
        const Environment& environment;
        std::filesystem::path userHome;
        const Clock& clock;
        Scheduler& scheduler;
        QueueFactory& queues;
        ProcessTable& processes;
        AppSettings& settings;
        LiveActivityCenter& liveActivities;
        WrappedHistory* history = nullptr;  // none: the day figures are not recorded
        bool demoMode = false;
        double logWindow = ClaudeCodeLog::window;  // how far back the logs are read, in seconds
    };

    explicit AIUsageModel(Dependencies dependencies);
    ~AIUsageModel();
    AIUsageModel(const AIUsageModel&) = delete;
    AIUsageModel& operator=(const AIUsageModel&) = delete;

    [[nodiscard]] static AIUsageModel& shared();

    // Once: a scan, a process poll and the timers. In demo mode the sample figures instead.
    void start();
    // Asks for a scan; dropped while one runs.
    void rescan();
    void pollProcesses();
    // The usage panel sets this while it is shown: scans every 5 s instead of every 20 s.
    void setActive(bool active);
    [[nodiscard]] bool isActive() const { return m_isActive; }
    void scheduleTimers();
    // Fills the published figures with a fixed sample; starts no timers.
    void applyDemo();

    // Sum of the token totals of events with from <= timestamp < to.
    [[nodiscard]] std::int64_t tokens(Date from, Date to) const;
    // The project (last folder of the session's cwd) with the most tokens in [from, to).
    [[nodiscard]] std::optional<std::pair<std::string, std::int64_t>> topProject(Date from, Date to) const;

    [[nodiscard]] const AITotals& today() const { return m_today; }
    [[nodiscard]] const std::vector<AIDayTotals>& last7Days() const { return m_last7Days; }
    [[nodiscard]] const std::optional<AIBlockUsage>& block() const { return m_block; }
    [[nodiscard]] const std::vector<AgentSession>& sessions() const { return m_sessions; }
    [[nodiscard]] const std::optional<Date>& lastScan() const { return m_lastScan; }
    [[nodiscard]] bool isScanning() const { return m_isScanning; }
    [[nodiscard]] const std::optional<AILogSnapshot>& snapshot() const { return m_snapshot; }
    [[nodiscard]] const std::set<AgentTool>& aliveTools() const { return m_aliveTools; }

    // Emitted on the main thread after the published figures were recomputed or replaced.
    Signal<> changed;
    // Emitted when isScanning changes.
    Signal<bool> scanningChanged;

private:
    void applySnapshot(AILogSnapshot snapshot);
    void applyAliveTools(std::set<AgentTool> tools);
    void recompute();
    void publishLiveActivity(Date now);

    Dependencies m_deps;
    std::shared_ptr<ClaudeCodeLog> m_log;
    std::unique_ptr<SerialQueue> m_queue;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);

    bool m_started = false;
    bool m_isActive = false;
    std::optional<RepeatingTimer> m_scanTimer;
    std::optional<RepeatingTimer> m_processTimer;
    std::optional<AILogSnapshot> m_snapshot;
    std::set<AgentTool> m_aliveTools;
    std::set<std::string> m_previouslyLive;
    std::optional<Date> m_flashedBlockStart;
    bool m_flashed80 = false;
    bool m_flashed100 = false;

    AITotals m_today;
    std::vector<AIDayTotals> m_last7Days;
    std::optional<AIBlockUsage> m_block;
    std::vector<AgentSession> m_sessions;
    std::optional<Date> m_lastScan;
    bool m_isScanning = false;
    bool m_demoFigures = false;
};

}  // namespace vantrelle
