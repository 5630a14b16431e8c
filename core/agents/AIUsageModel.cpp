#include "agents/AIUsageModel.h"

#include <algorithm>
#include <cmath>
#include <unordered_map>

#include "activity/LiveActivityCenter.h"
#include "agents/AIPricing.h"
#include "agents/AgentProcesses.h"
#include "catalog/AppSettings.h"
#include "support/DebugLog.h"
#include "support/LocalCalendar.h"
#include "support/Saturating.h"
#include "support/SharedInstance.h"
#include "wrapped/WrappedHistory.h"

namespace vantrelle {

namespace {

constexpr double kWindow = kBlockSeconds;
constexpr double kMaxGap = 600;  // pauses count at most 10 minutes of active time
constexpr double kRunning = 30;
constexpr double kWaiting = 1'800;
constexpr std::size_t kMaxSessions = 50;

// PERF NOTE: a price lookup lowercases the name and walks 25 rows; recompute meets few distinct
// models, so each is looked up once.
class CostCache {
public:
    double cost(const AIUsageEvent& event) {
        auto it = m_rates.find(event.model);
        if (it == m_rates.end()) it = m_rates.emplace(event.model, AIPricing::rates(event.model)).first;
        return it->second.costOf(event);
    }

private:
    std::unordered_map<std::string, AIPricing> m_rates;
};

struct Aggregate {
    std::int64_t tokens = 0;
    double cost = 0;
    Date first;
    Date last;
    std::int64_t count = 0;
    double active = 0;
};

LiveActivity aiActivity(std::string project, std::int64_t tokens, double progress, bool active) {
    return LiveActivity{LiveActivity::AI{std::move(project), tokens, progress, active}};
}

}  // namespace

AIUsageModel::AIUsageModel(Dependencies dependencies)
    : m_deps(std::move(dependencies)),
      m_log(std::make_shared<ClaudeCodeLog>(m_deps.environment, m_deps.userHome, m_deps.clock)),
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

std::vector<AIBlockUsage> AIUsageModel::blocks(const std::vector<const AIUsageEvent*>& sorted) {
    std::vector<AIBlockUsage> result;
    std::optional<AIBlockUsage> current;
    CostCache costs;
    for (const AIUsageEvent* event : sorted) {
        const Date at = event->timestamp;
        if (current && at < current->start + kWindow && at - current->lastActivity < kWindow) {
            current->tokens = saturatingAdd(current->tokens, event->totalTokens());
            current->cost += costs.cost(*event);
            current->lastActivity = at;
            continue;
        }
        if (current) result.push_back(*current);
        current = AIBlockUsage{
            LocalCalendar::startOfHour(at), event->totalTokens(), costs.cost(*event), at, 0, 0, 0};
    }
    if (current) result.push_back(*current);
    return result;
}

void AIUsageModel::recompute() {
    if (!m_snapshot) return;
    const Date now = m_deps.clock.now();
    const Date startOfToday = LocalCalendar::startOfDay(now);
    CostCache costs;

    std::vector<const AIUsageEvent*> sorted;
    sorted.reserve(m_snapshot->events().size());
    for (const auto& event : m_snapshot->events()) sorted.push_back(&event);
    std::stable_sort(sorted.begin(), sorted.end(), [](const AIUsageEvent* a, const AIUsageEvent* b) {
        return a->timestamp < b->timestamp;
    });

    // Day buckets, oldest first; boundaries[i] is the start of bucket i, boundaries[7] tomorrow.
    std::array<Date, 8> boundaries{};
    for (int d = 0; d < 7; ++d)
        boundaries[static_cast<std::size_t>(d)] = LocalCalendar::addDays(startOfToday, d - 6);
    boundaries[7] = LocalCalendar::addDays(startOfToday, 1);
    std::vector<AIDayTotals> buckets;
    for (std::size_t i = 0; i < 7; ++i) buckets.push_back({boundaries[i], 0, 0});

    AITotals today;
    std::set<std::string_view> todaySessions;
    std::unordered_map<std::string_view, Aggregate> aggregates;
    for (const AIUsageEvent* event : sorted) {
        const double cost = costs.cost(*event);
        const std::int64_t tokens = event->totalTokens();
        // PERF NOTE: a bucket is found by comparing with the eight day boundaries, not by calendar math.
        if (event->timestamp >= boundaries[0] && event->timestamp < boundaries[7]) {
            const auto at = std::upper_bound(boundaries.begin(), boundaries.end(), event->timestamp) -
                            boundaries.begin() - 1;
            auto& bucket = buckets[static_cast<std::size_t>(at)];
            bucket.tokens = saturatingAdd(bucket.tokens, tokens);
            bucket.cost += cost;
        }
        if (event->timestamp >= startOfToday) {
            today.input = saturatingAdd(today.input, event->input);
            today.output = saturatingAdd(today.output, event->output);
            today.cacheRead = saturatingAdd(today.cacheRead, event->cacheRead);
            today.cacheWrite = saturatingAdd(today.cacheWrite, event->cacheWrite);
            today.cost += cost;
            today.messages += 1;
            todaySessions.insert(event->sessionId);
        }
        auto [it, fresh] = aggregates.try_emplace(event->sessionId);
        Aggregate& aggregate = it->second;
        if (fresh) aggregate.first = aggregate.last = event->timestamp;
        if (aggregate.count >= 1) {
            const double gap = event->timestamp - aggregate.last;
            if (gap >= 0) aggregate.active += std::min(gap, kMaxGap);
        }
        aggregate.tokens = saturatingAdd(aggregate.tokens, tokens);
        aggregate.cost += cost;
        aggregate.count += 1;
        aggregate.first = std::min(aggregate.first, event->timestamp);
        aggregate.last = std::max(aggregate.last, event->timestamp);
    }
    today.sessions = static_cast<std::int64_t>(todaySessions.size());
    m_today = today;
    m_last7Days = buckets;
    if (m_deps.history) {
        std::vector<WrappedHistory::DayTokens> entries;
        for (const auto& day : m_last7Days) entries.push_back({day.date, day.tokens});
        m_deps.history->recordAITokens(entries);
    }

    // Windows: Claude Code and Codex only.
    std::vector<const AIUsageEvent*> windowed;
    windowed.reserve(sorted.size());
    for (const AIUsageEvent* event : sorted) {
        if (event->tool != AgentTool::gemini) windowed.push_back(event);
    }
    const auto found = blocks(windowed);
    std::int64_t budget = m_deps.settings.aiBlockTokenBudget();
    if (budget <= 0) {
        budget = 1'000'000;
        for (const auto& b : found) budget = std::max(budget, b.tokens);
    }
    m_block.reset();
    if (!found.empty()) {
        AIBlockUsage current = found.back();
        if (now < current.start + kWindow || now - current.lastActivity < kWindow) {
            const double minutes = std::max((now - current.start) / 60, 1.0);
            current.burnTokensPerMinute = static_cast<double>(current.tokens) / minutes;
            // Held inside the range: a window near the largest count would project past it.
            current.projectedTokens = saturatingCount(current.burnTokensPerMinute * 300);
            current.budget = budget;
            m_block = current;
        }
    }

    std::vector<AgentSession> sessions;
    for (const auto& [id, meta] : m_snapshot->sessions()) {
        const auto aggregateIt = aggregates.find(id);
        const Aggregate* aggregate = aggregateIt == aggregates.end() ? nullptr : &aggregateIt->second;
        Date lastActivity = std::max({meta.lastTimestamp.value_or(Date::distantPast()),
                                      aggregate ? aggregate->last : Date::distantPast(), meta.fileModified});
        const Date startedAt = aggregate ? aggregate->first : meta.firstTimestamp.value_or(lastActivity);
        if (!(lastActivity >= startOfToday || now - lastActivity < 120)) continue;
        const bool alive = m_aliveTools.contains(meta.tool);
        const double age = now - lastActivity;
        AgentSession session;
        session.state = alive && age < kRunning   ? AgentSession::State::running
                        : alive && age < kWaiting ? AgentSession::State::waiting
                                                  : AgentSession::State::done;
        const std::string* topModel = nullptr;
        std::int64_t topCount = 0;
        for (const auto& [model, count] : meta.modelCounts) {
            if (!topModel || count > topCount) topModel = &model, topCount = count;
        }
        session.modelFamily = AIPricing::family(topModel ? std::string_view(*topModel) : std::string_view{});
        if (meta.cwd.empty()) {
            session.projectName = displayName(meta.tool);
        } else {
            const std::string last = std::filesystem::path(meta.cwd).filename().string();
            session.projectName = last.empty() ? meta.cwd : last;
        }
        session.id = id;
        session.tool = meta.tool;
        session.cwd = meta.cwd;
        session.branch = meta.branch;
        session.title = meta.title ? *meta.title : meta.firstPrompt ? *meta.firstPrompt : session.projectName;
        session.lastPrompt = meta.lastPrompt;
        session.messages = aggregate ? aggregate->count : meta.messages;
        session.tokens = aggregate ? aggregate->tokens : 0;
        session.cost = aggregate ? aggregate->cost : 0;
        session.startedAt = startedAt;
        session.lastActivity = lastActivity;
        session.activeSeconds = (aggregate ? aggregate->active : 0) +
                                (session.state == AgentSession::State::running ? std::min(age, kMaxGap) : 0);
        session.logURL = meta.fileURL;
        sessions.push_back(std::move(session));
    }
    std::stable_sort(sessions.begin(), sessions.end(), [](const AgentSession& a, const AgentSession& b) {
        if (a.state != b.state) return a.state < b.state;
        return a.lastActivity > b.lastActivity;
    });
    if (sessions.size() > kMaxSessions) sessions.resize(kMaxSessions);
    m_sessions = std::move(sessions);
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
    const auto session = [&](std::string id, AgentTool tool, std::string project, std::string branch,
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
