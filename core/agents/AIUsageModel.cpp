#include "agents/AIUsageModel.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "activity/LiveActivityCenter.h"
#include "agents/AIPricing.h"
#include "agents/AgentProcesses.h"
#include "agents/UsageSummary.h"
#include "catalog/AppSettings.h"
#include "support/DebugLog.h"
#include "support/LocalCalendar.h"
#include "support/Saturating.h"
#include "support/SharedInstance.h"
#include "wrapped/WrappedHistory.h"

namespace vantrelle {

namespace {

LiveActivity aiActivity(std::string project, std::int64_t tokens, double progress, bool active) {
    return LiveActivity{LiveActivity::AI{std::move(project), tokens, progress, active}};
}

}  // namespace

AIUsageModel::AIUsageModel(Dependencies dependencies)
    : m_deps(std::move(dependencies)),
      m_log(std::make_shared<ClaudeCodeLog>(m_deps.environment, m_deps.userHome, m_deps.clock,
                                            m_deps.logWindow)),
      m_queue(m_deps.queues.make("aiusage")) {}

AIUsageModel::~AIUsageModel() {
    *m_alive = false;
}

AIUsageModel& AIUsageModel::shared() {
    return SharedInstance<AIUsageModel>::get();
}

void AIUsageModel::start() {
    if (m_started) return;
    m_started = true;
    if (m_deps.demoMode) {
        applyDemo();
        return;
    }
    rescan();
    pollProcesses();
    scheduleTimers();
}

void AIUsageModel::setActive(bool active) {
    if (active) {
        if (m_deps.demoMode || m_isActive) return;
        m_isActive = true;
        scheduleTimers();
        rescan();
    } else {
        m_isActive = false;
        scheduleTimers();
    }
}

void AIUsageModel::scheduleTimers() {
    m_scanTimer.reset();
    m_scanTimer = m_deps.scheduler.repeat(m_isActive ? 5.0 : 20.0, [this] { rescan(); });
    if (!m_processTimer) m_processTimer = m_deps.scheduler.repeat(5.0, [this] { pollProcesses(); });
}

void AIUsageModel::rescan() {
    if (m_deps.demoMode || m_isScanning) return;
    m_isScanning = true;
    scanningChanged.emit(true);
    m_queue->async([log = m_log, alive = std::weak_ptr<bool>(m_alive), this] {
        AILogSnapshot snapshot = log->scan();
        m_deps.scheduler.post([alive, this, snapshot = std::move(snapshot)]() mutable {
            if (alive.expired()) return;
            applySnapshot(std::move(snapshot));
        });
    });
}

void AIUsageModel::applySnapshot(AILogSnapshot snapshot) {
    m_isScanning = false;
    scanningChanged.emit(false);
    m_lastScan = snapshot.scannedAt;
    m_snapshot = std::move(snapshot);
    recompute();
}

void AIUsageModel::pollProcesses() {
    m_queue->async([alive = std::weak_ptr<bool>(m_alive), this] {
        // Runs only while the model lives: the queue belongs to it and finishes before it goes.
        std::string error;
        std::set<AgentTool> tools;
        if (auto processes = m_deps.processes.list(error)) {
            tools = aliveAgentTools(*processes);
        } else {
            DebugLog::write([&] { return "aiusage: ps failed: " + error; });
        }
        m_deps.scheduler.post([alive, this, tools = std::move(tools)]() mutable {
            if (alive.expired()) return;
            applyAliveTools(std::move(tools));
        });
    });
}

void AIUsageModel::applyAliveTools(std::set<AgentTool> tools) {
    if (tools == m_aliveTools) return;
    m_aliveTools = std::move(tools);
    recompute();
}

void AIUsageModel::recompute() {
    if (!m_snapshot) return;
    const Date now = m_deps.clock.now();
    UsageSummary summary = summarizeUsage({m_snapshot->events(), m_snapshot->sessions(), now, m_aliveTools,
                                           m_deps.settings.aiBlockTokenBudget()});
    m_today = summary.today;
    m_last7Days = std::move(summary.last7Days);
    m_block = summary.block;
    m_sessions = std::move(summary.sessions);
    if (m_deps.history) {
        std::vector<WrappedHistory::DayTokens> entries;
        for (const auto& day : m_last7Days) entries.push_back({day.date, day.tokens});
        m_deps.history->recordAITokens(entries);
    }
    publishLiveActivity(now);
    changed.emit();
}

void AIUsageModel::publishLiveActivity(Date) {
    auto& center = m_deps.liveActivities;
    std::vector<const AgentSession*> live;
    std::set<std::string> liveIds;
    for (const auto& session : m_sessions) {
        if (session.state == AgentSession::State::done) continue;
        live.push_back(&session);
        liveIds.insert(session.id);
    }
    const std::int64_t blockTokens = m_block ? m_block->tokens : 0;
    const double progress = m_block && m_block->budget >= 1
                                ? static_cast<double>(m_block->tokens) / static_cast<double>(m_block->budget)
                                : 0;
    if (!m_deps.settings.aiLiveActivity()) {
        center.set(std::nullopt, LiveActivityCenter::Source::ai);
        m_previouslyLive = std::move(liveIds);
        return;
    }
    const double capped = std::min(progress, 1.5);
    const auto activityOf = [&](const AgentSession& s, bool active) {
        if (s.tool == AgentTool::gemini) return aiActivity(s.projectName, s.tokens, 0, active);
        return aiActivity(s.projectName, blockTokens, capped, active);
    };
    if (!live.empty()) {
        center.set(activityOf(*live.front(), live.front()->state == AgentSession::State::running),
                   LiveActivityCenter::Source::ai);
    } else {
        center.set(std::nullopt, LiveActivityCenter::Source::ai);
    }
    for (const auto& id : m_previouslyLive) {
        if (liveIds.contains(id)) continue;
        const auto it =
            std::find_if(m_sessions.begin(), m_sessions.end(), [&](const auto& s) { return s.id == id; });
        if (it != m_sessions.end()) center.flash(activityOf(*it, false), 4.0);
    }
    m_previouslyLive = std::move(liveIds);

    if (!m_block) return;
    if (m_flashedBlockStart != m_block->start) {
        m_flashedBlockStart = m_block->start;
        m_flashed80 = m_flashed100 = false;
    }
    if (m_block->budget < 1) return;
    const double ratio = static_cast<double>(m_block->tokens) / static_cast<double>(m_block->budget);
    if (ratio >= 1.0 && !m_flashed100) {
        m_flashed80 = m_flashed100 = true;
        center.flash(aiActivity("Window limit", blockTokens, 1.0, false), 6.0);
        return;
    }
    if (ratio >= 0.8 && !m_flashed80) {
        m_flashed80 = true;
        center.flash(aiActivity("80% of window", blockTokens, capped, false), 5.0);
    }
}

std::int64_t AIUsageModel::tokens(Date from, Date to) const {
    if (!m_snapshot) return 0;
    std::int64_t sum = 0;
    for (const auto& event : m_snapshot->events()) {
        if (from <= event.timestamp && event.timestamp < to) sum = saturatingAdd(sum, event.totalTokens());
    }
    return sum;
}

std::optional<std::pair<std::string, std::int64_t>> AIUsageModel::topProject(Date from, Date to) const {
    if (!m_snapshot) return std::nullopt;
    if (m_deps.demoMode) return std::pair<std::string, std::int64_t>{"aurora-shop", 9'400'000};
    std::map<std::string, std::int64_t> sums;
    const auto& sessions = m_snapshot->sessions();
    for (const auto& event : m_snapshot->events()) {
        if (!(from <= event.timestamp && event.timestamp < to)) continue;
        const auto it = sessions.find(event.sessionId);
        if (it == sessions.end() || it->second.cwd.empty()) continue;
        auto& sum = sums[std::filesystem::path(it->second.cwd).filename().string()];
        sum = saturatingAdd(sum, event.totalTokens());
    }
    std::optional<std::pair<std::string, std::int64_t>> best;
    for (const auto& [name, sum] : sums) {
        if (!best || sum > best->second) best = std::pair{name, sum};
    }
    return best;
}

void AIUsageModel::applyDemo() {
    const Date now = m_deps.clock.now();
    const Date startOfToday = LocalCalendar::startOfDay(now);
    m_snapshot = AILogSnapshot{};
    m_snapshot->scannedAt = now;
    m_lastScan = now;
    m_today = AITotals{184'200, 96'400, 3'120'000, 412'000, 14.82, 312, 4};
    static constexpr std::int64_t kWeek[] = {2'100'000, 3'400'000, 1'250'000, 4'800'000,
                                             2'950'000, 620'000,   3'812'600};
    m_last7Days.clear();
    for (int d = 0; d < 7; ++d) {
        const auto tokens = kWeek[d];
        m_last7Days.push_back(
            {LocalCalendar::addDays(startOfToday, d - 6), tokens, static_cast<double>(tokens) * 3.9e-6});
    }
    m_block = AIBlockUsage{LocalCalendar::startOfHour(now - 5'400),
                           2'640'000,
                           10.35,
                           now - 40,
                           4'000'000,
                           2'640'000.0 / 90.0,
                           static_cast<std::int64_t>(2'640'000.0 / 90.0 * 300)};
    const auto session = [&](std::string id, AgentTool tool, const std::string& project, std::string branch,
                             std::string title, std::string prompt, std::string family, std::int64_t messages,
                             std::int64_t tokens, double cost, double startedAgo, double lastAgo,
                             AgentSession::State state) {
        AgentSession s;
        s.id = std::move(id);
        s.tool = tool;
        s.projectName = project;
        s.cwd = "/home/demo/code/" + project;
        s.branch = std::move(branch);
        s.title = std::move(title);
        s.lastPrompt = std::move(prompt);
        s.modelFamily = std::move(family);
        s.messages = messages;
        s.tokens = tokens;
        s.cost = cost;
        s.startedAt = now - startedAgo;
        s.lastActivity = now - lastAgo;
        s.activeSeconds = std::min(startedAgo - lastAgo, 5'400.0);
        s.state = state;
        return s;
    };
    m_sessions = {
        session("demo-1", AgentTool::claudeCode, "aurora-shop", "feature/checkout",
                "Refactor the checkout flow", "Add tests for the coupon edge cases", "Opus", 142, 1'820'000,
                7.41, 6'300, 8, AgentSession::State::running),
        session("demo-2", AgentTool::codex, "tidewater-api", "main", "Fix pagination in /orders",
                "Run the integration suite again", "GPT", 61, 640'000, 0, 4'100, 240,
                AgentSession::State::waiting),
        session("demo-3", AgentTool::gemini, "lumen-docs", "docs/setup", "Rewrite the setup guide",
                "Shorten the install section", "Gemini", 23, 212'000, 0.52, 9'000, 3'900,
                AgentSession::State::done),
    };
    changed.emit();
}

}  // namespace vantrelle
