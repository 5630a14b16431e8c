#include "agents/UsageSummary.h"

#include <algorithm>
#include <array>
#include <string_view>
#include <unordered_map>

#include "agents/AIPriceCache.h"
#include "support/LocalCalendar.h"
#include "support/Saturating.h"

namespace vantrelle {

namespace {

constexpr double kMaxGap = 600;  // pauses count at most 10 minutes of active time
constexpr double kRunning = 30;
constexpr double kWaiting = 1'800;
constexpr double kRecentlyActive = 120;  // a session from before today still listed this long

// One session's events, summed.
struct SessionSums {
    std::int64_t tokens = 0;
    double cost = 0;
    Date first;
    Date last;
    std::int64_t count = 0;
    double active = 0;

    void add(const AIUsageEvent& event, std::int64_t eventTokens, double eventCost) {
        if (count == 0) first = last = event.timestamp;
        const double gap = event.timestamp - last;
        if (count >= 1 && gap >= 0) active += std::min(gap, kMaxGap);
        tokens = saturatingAdd(tokens, eventTokens);
        cost += eventCost;
        count += 1;
        first = std::min(first, event.timestamp);
        last = std::max(last, event.timestamp);
    }
};

using SessionSumsById = std::unordered_map<std::string_view, SessionSums>;

// Today's totals, the seven day buckets and every session's sums, in one pass over the events.
struct DaySums {
    AITotals today;
    std::vector<AIDayTotals> last7Days;
    SessionSumsById sessions;
};

DaySums sumDays(const std::vector<const AIUsageEvent*>& sorted, Date now) {
    const Date startOfToday = LocalCalendar::startOfDay(now);
    // boundaries[i] is the start of bucket i, boundaries[7] tomorrow.
    std::array<Date, 8> boundaries{};
    for (int d = 0; d < 7; ++d)
        boundaries[static_cast<std::size_t>(d)] = LocalCalendar::addDays(startOfToday, d - 6);
    boundaries[7] = LocalCalendar::addDays(startOfToday, 1);

    DaySums sums;
    for (std::size_t i = 0; i < 7; ++i) sums.last7Days.push_back({boundaries[i], 0, 0});
    std::set<std::string_view> todaySessions;
    AIPriceCache costs;
    for (const AIUsageEvent* event : sorted) {
        const double cost = costs.cost(*event);
        const std::int64_t tokens = event->totalTokens();
        // PERF NOTE: a bucket is found by comparing with the eight day boundaries, not by calendar math.
        if (event->timestamp >= boundaries[0] && event->timestamp < boundaries[7]) {
            const auto at = std::upper_bound(boundaries.begin(), boundaries.end(), event->timestamp) -
                            boundaries.begin() - 1;
            auto& bucket = sums.last7Days[static_cast<std::size_t>(at)];
            bucket.tokens = saturatingAdd(bucket.tokens, tokens);
            bucket.cost += cost;
        }
        if (event->timestamp >= startOfToday) {
            AITotals& today = sums.today;
            today.input = saturatingAdd(today.input, event->input);
            today.output = saturatingAdd(today.output, event->output);
            today.cacheRead = saturatingAdd(today.cacheRead, event->cacheRead);
            today.cacheWrite = saturatingAdd(today.cacheWrite, event->cacheWrite);
            today.cost += cost;
            today.messages += 1;
            todaySessions.insert(event->sessionId);
        }
        sums.sessions[event->sessionId].add(*event, tokens, cost);
    }
    sums.today.sessions = static_cast<std::int64_t>(todaySessions.size());
    return sums;
}

std::string projectName(const AISessionMeta& meta) {
    if (meta.cwd.empty()) return std::string(displayName(meta.tool));
    const std::string last = std::filesystem::path(meta.cwd).filename().string();
    return last.empty() ? meta.cwd : last;
}

std::string_view topModelFamily(const AISessionMeta& meta) {
    const std::string* topModel = nullptr;
    std::int64_t topCount = 0;
    for (const auto& [model, count] : meta.modelCounts) {
        if (!topModel || count > topCount) topModel = &model, topCount = count;
    }
    return AIPricing::family(topModel ? std::string_view(*topModel) : std::string_view{});
}

// The listed session, or nothing when it ended before today and not in the last two minutes.
std::optional<AgentSession> agentSession(const std::string& id, const AISessionMeta& meta,
                                         const SessionSums* sums, const UsageInputs& inputs) {
    const Date lastActivity = std::max({meta.lastTimestamp.value_or(Date::distantPast()),
                                        sums ? sums->last : Date::distantPast(), meta.fileModified});
    const Date now = inputs.now;
    if (lastActivity < LocalCalendar::startOfDay(now) && now - lastActivity >= kRecentlyActive)
        return std::nullopt;
    const bool alive = inputs.aliveTools.contains(meta.tool);
    const double age = now - lastActivity;
    AgentSession session;
    session.state = alive && age < kRunning   ? AgentSession::State::running
                    : alive && age < kWaiting ? AgentSession::State::waiting
                                              : AgentSession::State::done;
    session.modelFamily = topModelFamily(meta);
    session.projectName = projectName(meta);
    session.id = id;
    session.tool = meta.tool;
    session.cwd = meta.cwd;
    session.branch = meta.branch;
    session.title = meta.title ? *meta.title : meta.firstPrompt ? *meta.firstPrompt : session.projectName;
    session.lastPrompt = meta.lastPrompt;
    session.messages = sums ? sums->count : meta.messages;
    session.tokens = sums ? sums->tokens : 0;
    session.cost = sums ? sums->cost : 0;
    session.startedAt = sums ? sums->first : meta.firstTimestamp.value_or(lastActivity);
    session.lastActivity = lastActivity;
    const double runningNow = session.state == AgentSession::State::running ? std::min(age, kMaxGap) : 0;
    session.activeSeconds = (sums ? sums->active : 0) + runningNow;
    session.logURL = meta.fileURL;
    return session;
}

std::vector<AgentSession> agentSessions(const SessionSumsById& sums, const UsageInputs& inputs) {
    std::vector<AgentSession> sessions;
    for (const auto& [id, meta] : inputs.sessions) {
        const auto found = sums.find(id);
        if (auto session = agentSession(id, meta, found == sums.end() ? nullptr : &found->second, inputs)) {
            sessions.push_back(std::move(*session));
        }
    }
    std::stable_sort(sessions.begin(), sessions.end(), [](const AgentSession& a, const AgentSession& b) {
        if (a.state != b.state) return a.state < b.state;
        return a.lastActivity > b.lastActivity;
    });
    if (sessions.size() > kMaxListedSessions) sessions.resize(kMaxListedSessions);
    return sessions;
}

}  // namespace

std::vector<const AIUsageEvent*> sortedByTime(const AILogSnapshot::Events& events) {
    std::vector<const AIUsageEvent*> sorted;
    sorted.reserve(events.size());
    for (const auto& event : events) sorted.push_back(&event);
    std::stable_sort(sorted.begin(), sorted.end(), [](const AIUsageEvent* a, const AIUsageEvent* b) {
        return a->timestamp < b->timestamp;
    });
    return sorted;
}

std::vector<AIBlockUsage> usageBlocks(const std::vector<const AIUsageEvent*>& sorted) {
    std::vector<AIBlockUsage> result;
    std::optional<AIBlockUsage> current;
    AIPriceCache costs;
    for (const AIUsageEvent* event : sorted) {
        const Date at = event->timestamp;
        if (current && at < current->start + kBlockSeconds && at - current->lastActivity < kBlockSeconds) {
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

std::optional<AIBlockUsage> openBlock(const std::vector<const AIUsageEvent*>& sorted, Date now,
                                      std::int64_t budgetSetting) {
    // Gemini has no usage window.
    std::vector<const AIUsageEvent*> windowed;
    windowed.reserve(sorted.size());
    std::copy_if(sorted.begin(), sorted.end(), std::back_inserter(windowed),
                 [](const AIUsageEvent* event) { return event->tool != AgentTool::gemini; });
    const auto found = usageBlocks(windowed);
    if (found.empty()) return std::nullopt;
    AIBlockUsage current = found.back();
    if (now >= current.start + kBlockSeconds && now - current.lastActivity >= kBlockSeconds)
        return std::nullopt;
    std::int64_t budget = budgetSetting;
    if (budget <= 0) {
        budget = 1'000'000;
        for (const auto& block : found) budget = std::max(budget, block.tokens);
    }
    const double minutes = std::max((now - current.start) / 60, 1.0);
    current.burnTokensPerMinute = static_cast<double>(current.tokens) / minutes;
    // Held inside the range: a window near the largest count would project past it.
    current.projectedTokens = saturatingCount(current.burnTokensPerMinute * 300);
    current.budget = budget;
    return current;
}

UsageSummary summarizeUsage(const UsageInputs& inputs) {
    const auto sorted = sortedByTime(inputs.events);
    DaySums sums = sumDays(sorted, inputs.now);
    UsageSummary summary;
    summary.today = sums.today;
    summary.last7Days = std::move(sums.last7Days);
    summary.block = openBlock(sorted, inputs.now, inputs.budgetSetting);
    summary.sessions = agentSessions(sums.sessions, inputs);
    return summary;
}

std::map<std::string, UsageDay> usageByDay(const AILogSnapshot::Events& events) {
    std::map<std::string, UsageDay> days;
    AIPriceCache costs;
    for (const auto& event : events) {
        UsageDay& day = days[LocalCalendar::dayKey(event.timestamp)];
        day.input = saturatingAdd(day.input, event.input);
        day.output = saturatingAdd(day.output, event.output);
        day.cacheRead = saturatingAdd(day.cacheRead, event.cacheRead);
        day.cacheWrite = saturatingAdd(day.cacheWrite, event.cacheWrite);
        day.cost += costs.cost(event);
        day.messages += 1;
    }
    return days;
}

}  // namespace vantrelle
