#include "app/UsageTables.h"

#include <algorithm>
#include <filesystem>
#include <unordered_map>

#include "agents/AIPriceCache.h"
#include "agents/IsoDate.h"
#include "agents/UsageSummary.h"
#include "support/LocalCalendar.h"
#include "support/Saturating.h"

namespace vantrelle {

namespace {

void addTo(UsageRow& row, const AIUsageEvent& event, double cost) {
    row.totals.add(event, cost);
    row.models[event.model].add(event, cost);
}

std::vector<UsageRow> byKey(const AILogSnapshot::Events& events, const UsageRange& range, bool months) {
    std::map<std::string, UsageRow> rows;
    AIPriceCache prices;
    for (const auto& event : events) {
        std::string day = LocalCalendar::dayKey(event.timestamp);
        if (!range.contains(day)) continue;
        if (months) day.resize(7);
        UsageRow& row = rows[day];
        row.key = row.label = day;
        addTo(row, event, prices.cost(event));
    }
    std::vector<UsageRow> result;
    result.reserve(rows.size());
    for (auto& [key, row] : rows) result.push_back(std::move(row));
    return result;
}

std::string projectOf(const AILogSnapshot::Sessions& sessions, const std::string& id) {
    const auto found = sessions.find(id);
    if (found == sessions.end() || found->second.cwd.empty()) return id;
    const std::string name = std::filesystem::path(found->second.cwd).filename().string();
    return name.empty() ? found->second.cwd : name;
}

std::vector<UsageRow> bySession(const AILogSnapshot::Events& events, const AILogSnapshot::Sessions& sessions,
                                const UsageRange& range) {
    std::unordered_map<std::string, UsageRow> rows;
    std::unordered_map<std::string, Date> last;
    AIPriceCache prices;
    for (const auto& event : events) {
        if (!range.contains(LocalCalendar::dayKey(event.timestamp))) continue;
        UsageRow& row = rows[event.sessionId];
        row.key = event.sessionId;
        addTo(row, event, prices.cost(event));
        Date& latest = last.try_emplace(event.sessionId, event.timestamp).first->second;
        latest = std::max(latest, event.timestamp);
    }
    std::vector<UsageRow> result;
    for (auto& [id, row] : rows) {
        row.label = projectOf(sessions, id);
        row.lastActivity = formatIsoDate(last.at(id));
        result.push_back(std::move(row));
    }
    std::sort(result.begin(), result.end(), [](const UsageRow& a, const UsageRow& b) {
        return std::tie(*a.lastActivity, a.key) < std::tie(*b.lastActivity, b.key);
    });
    return result;
}

std::vector<UsageRow> byWindow(const AILogSnapshot::Events& events, const UsageRange& range, Date now) {
    std::vector<const AIUsageEvent*> windowed;
    for (const AIUsageEvent* event : sortedByTime(events)) {
        if (event->tool != AgentTool::gemini && range.contains(LocalCalendar::dayKey(event->timestamp)))
            windowed.push_back(event);
    }
    const auto blocks = usageBlocks(windowed);
    const auto open = openBlock(windowed, now, 0);
    std::vector<UsageRow> rows;
    AIPriceCache prices;
    std::size_t next = 0;  // the next event to place; windows take the events in time order
    for (const auto& block : blocks) {
        UsageRow row;
        row.key = formatIsoDate(block.start);
        row.label = LocalCalendar::dayKey(block.start) + " " + LocalCalendar::timeOfDay(block.start) + "–" +
                    LocalCalendar::timeOfDay(block.start + kBlockSeconds);
        row.lastActivity = formatIsoDate(block.lastActivity);
        for (; next < windowed.size() && windowed[next]->timestamp <= block.lastActivity; ++next)
            addTo(row, *windowed[next], prices.cost(*windowed[next]));
        if (open && open->start == block.start) {
            row.live = true;
            row.projectedTokens = open->projectedTokens;
            row.secondsLeft = std::max(0.0, block.start + kBlockSeconds - now);
        }
        rows.push_back(std::move(row));
    }
    return rows;
}

}  // namespace

std::int64_t UsageTotals::tokens() const {
    return saturatingAdd(saturatingAdd(input, output), saturatingAdd(cacheRead, cacheWrite));
}

void UsageTotals::add(const AIUsageEvent& event, double eventCost) {
    input = saturatingAdd(input, event.input);
    output = saturatingAdd(output, event.output);
    cacheRead = saturatingAdd(cacheRead, event.cacheRead);
    cacheWrite = saturatingAdd(cacheWrite, event.cacheWrite);
    cost += eventCost;
    messages += 1;
}

bool UsageRange::contains(const std::string& dayKey) const {
    return (since.empty() || dayKey >= since) && (until.empty() || dayKey <= until);
}

std::vector<UsageRow> usageRows(UsageGrouping grouping, const AILogSnapshot::Events& events,
                                const AILogSnapshot::Sessions& sessions, const UsageRange& range, Date now) {
    switch (grouping) {
        case UsageGrouping::daily:
            return byKey(events, range, false);
        case UsageGrouping::monthly:
            return byKey(events, range, true);
        case UsageGrouping::session:
            return bySession(events, sessions, range);
        case UsageGrouping::blocks:
            return byWindow(events, range, now);
    }
    return {};
}

}  // namespace vantrelle
