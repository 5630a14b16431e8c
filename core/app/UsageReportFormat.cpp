#include <fmt/format.h>

#include <nlohmann/json.hpp>

#include "agents/IsoDate.h"
#include "app/UsageReport.h"
#include "support/AIFormat.h"
#include "support/LocalCalendar.h"

namespace vantrelle {

namespace {

nlohmann::json sessionJson(const AgentSession& s) {
    nlohmann::json j = {
        {"id", s.id},
        {"tool", rawValue(s.tool)},
        {"projectName", s.projectName},
        {"cwd", s.cwd},
        {"branch", s.branch ? nlohmann::json(*s.branch) : nlohmann::json(nullptr)},
        {"title", s.title},
        {"lastPrompt", s.lastPrompt ? nlohmann::json(*s.lastPrompt) : nlohmann::json(nullptr)},
        {"modelFamily", s.modelFamily},
        {"messages", s.messages},
        {"tokens", s.tokens},
        {"cost", s.cost},
        {"startedAt", formatIsoDate(s.startedAt)},
        {"lastActivity", formatIsoDate(s.lastActivity)},
        {"activeSeconds", s.activeSeconds},
        {"state", rawValue(s.state)},
        {"logURL", s.logURL.string()}};
    return j;
}

nlohmann::json problemsJson(const LogProblems& problems) {
    return {{"brokenLines", problems.brokenLines},
            {"futureLines", problems.futureLines},
            {"longLines", problems.longLines},
            {"unreadableFiles", problems.unreadableFiles},
            {"oversizedFiles", problems.oversizedFiles}};
}

nlohmann::json totalsJson(const AITotals& today) {
    return {{"input", today.input},           {"output", today.output}, {"cacheRead", today.cacheRead},
            {"cacheWrite", today.cacheWrite}, {"cost", today.cost},     {"messages", today.messages},
            {"sessions", today.sessions}};
}

nlohmann::json blockJson(const std::optional<AIBlockUsage>& block) {
    if (!block) return nullptr;
    return {{"start", formatIsoDate(block->start)},
            {"tokens", block->tokens},
            {"cost", block->cost},
            {"lastActivity", formatIsoDate(block->lastActivity)},
            {"budget", block->budget},
            {"burnTokensPerMinute", block->burnTokensPerMinute},
            {"projectedTokens", block->projectedTokens}};
}

std::string blockText(const std::optional<AIBlockUsage>& block, Date now) {
    if (!block) return "Window       none open\n";
    const double left = block->start + kBlockSeconds - now;
    const double percent =
        block->budget > 0 ? 100.0 * static_cast<double>(block->tokens) / static_cast<double>(block->budget)
                          : 0.0;
    return fmt::format("Window       since {}  {} tokens  ${:.2f}\n", formatIsoDate(block->start),
                       AIFormat::tokens(block->tokens), block->cost) +
           fmt::format("             burn {}/min  projected {}  budget {} ({:.0f}%)  {} left\n",
                       AIFormat::tokens(static_cast<std::int64_t>(block->burnTokensPerMinute)),
                       AIFormat::tokens(block->projectedTokens), AIFormat::tokens(block->budget), percent,
                       AIFormat::remaining(left));
}

}  // namespace

std::string usageJson(const UsageReportData& data) {
    const UsageSummary& summary = data.summary;
    nlohmann::json root;
    root["today"] = totalsJson(summary.today);
    root["last7Days"] = nlohmann::json::array();
    for (const auto& day : summary.last7Days) {
        root["last7Days"].push_back(
            {{"date", LocalCalendar::dayKey(day.date)}, {"tokens", day.tokens}, {"cost", day.cost}});
    }
    root["daily"] = nlohmann::json::array();
    for (const auto& [key, day] : data.daily) {
        root["daily"].push_back({{"date", key},
                                 {"input", day.input},
                                 {"output", day.output},
                                 {"cacheRead", day.cacheRead},
                                 {"cacheWrite", day.cacheWrite},
                                 {"cost", day.cost},
                                 {"messages", day.messages}});
    }
    root["block"] = blockJson(summary.block);
    root["sessions"] = nlohmann::json::array();
    for (const auto& session : summary.sessions) root["sessions"].push_back(sessionJson(session));
    root["skipped"] = problemsJson(data.problems);
    // File and folder names need not be UTF-8; such bytes are written as U+FFFD instead of failing.
    return root.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
}

std::string usageText(const UsageReportData& data) {
    const UsageSummary& summary = data.summary;
    const AITotals& today = summary.today;
    std::string out;
    const std::int64_t todayTokens = today.input + today.output + today.cacheRead + today.cacheWrite;
    out += fmt::format("Today        {} tokens  ${:.2f}  {} messages  {} sessions\n",
                       AIFormat::tokens(todayTokens), today.cost, today.messages, today.sessions);
    out += fmt::format("             input {}  output {}  cache read {}  cache write {}\n",
                       AIFormat::tokens(today.input), AIFormat::tokens(today.output),
                       AIFormat::tokens(today.cacheRead), AIFormat::tokens(today.cacheWrite));
    out += "Last 7 days\n";
    for (const auto& day : summary.last7Days) {
        out += fmt::format("  {}  {:>9}  ${:.2f}\n", LocalCalendar::dayKey(day.date),
                           AIFormat::tokens(day.tokens), day.cost);
    }
    out += blockText(summary.block, data.now);
    if (const auto& p = data.problems; p.total() > 0) {
        out += fmt::format(
            "Skipped      {} broken, {} future-dated, {} over-long lines; {} unreadable, {} too large "
            "files\n",
            p.brokenLines, p.futureLines, p.longLines, p.unreadableFiles, p.oversizedFiles);
    }
    out += fmt::format("Sessions     {}\n", summary.sessions.size());
    for (const auto& s : summary.sessions) {
        out += fmt::format("  [{}] {} · {} · {} · {} tokens  ${:.2f}  active {}\n", rawValue(s.state),
                           displayName(s.tool), s.projectName, s.title, AIFormat::tokens(s.tokens), s.cost,
                           AIFormat::duration(s.activeSeconds));
    }
    return out;
}

}  // namespace vantrelle
