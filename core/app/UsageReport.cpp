#include "app/UsageReport.h"

#include <fmt/format.h>

#include <map>
#include <nlohmann/json.hpp>

#include "activity/LiveActivityCenter.h"
#include "agents/AIPricing.h"
#include "agents/AIUsageModel.h"
#include "agents/IsoDate.h"
#include "catalog/AppSettings.h"
#include "platform/VirtualScheduler.h"
#include "support/AIFormat.h"
#include "support/AppPaths.h"
#include "support/AtomicFile.h"
#include "support/JsonDefaultsStore.h"
#include "support/LocalCalendar.h"
#include "support/MemoryDefaultsStore.h"
#include "support/NotificationCenter.h"

namespace vantrelle {

namespace {

class NoLoginItem final : public LoginItem {
public:
    [[nodiscard]] bool isEnabled() const override { return false; }
    bool setEnabled(bool) override { return false; }
};

// The report needs no process list: sessions of a one-shot run count as not alive.
class NoProcesses final : public ProcessTable {
public:
    [[nodiscard]] std::optional<std::vector<ProcessInfo>> list(std::string&) override {
        return std::vector<ProcessInfo>{};
    }
};

// The environment with VANTRELLE_AI_HOME pinned to the chosen home.
class HomeEnvironment final : public Environment {
public:
    HomeEnvironment(const Environment& base, std::optional<std::string> home)
        : m_base(base), m_home(std::move(home)) {}
    [[nodiscard]] std::optional<std::string> get(std::string_view name) const override {
        if (m_home && name == "VANTRELLE_AI_HOME") return m_home;
        return m_base.get(name);
    }

private:
    const Environment& m_base;
    std::optional<std::string> m_home;
};

struct DayRow {
    std::int64_t input = 0, output = 0, cacheRead = 0, cacheWrite = 0, messages = 0;
    double cost = 0;
};

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

}  // namespace

const char* usageSynopsis() {
    return "usage: vantrelle usage [--json] [--now <ISO 8601>] [--home <dir>]\n"
           "  --json         the figures as JSON\n"
           "  --now <date>   the moment to report for, such as 2026-03-07T09:10:00Z\n"
           "  --home <dir>   the folder holding .claude, .codex and .gemini (default: your home)\n"
           "  -h, --help     this text\n";
}

std::optional<UsageReportOptions> parseUsageArguments(const std::vector<std::string>& arguments,
                                                      std::string& error) {
    UsageReportOptions options;
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        const std::string& argument = arguments[i];
        if (argument == "--help" || argument == "-h") {
            options.help = true;
            return options;
        }
        if (argument == "--json") {
            options.json = true;
        } else if (argument == "--now" || argument == "--home") {
            if (i + 1 >= arguments.size()) {
                error = argument + " needs a value";
                return std::nullopt;
            }
            const std::string& value = arguments[++i];
            if (argument == "--home") {
                std::error_code failure;
                if (!std::filesystem::is_directory(value, failure)) {
                    error = "--home " + value + ": no such folder";
                    return std::nullopt;
                }
                options.home = value;
            } else if (auto date = parseIsoDate(value)) {
                options.now = date;
            } else {
                error = "--now needs an ISO 8601 date-time such as 2026-03-07T09:10:00Z, not " + value;
                return std::nullopt;
            }
        } else {
            error = "unknown option " + argument;
            return std::nullopt;
        }
    }
    return options;
}

std::string usageReport(const UsageReportOptions& options, const Environment& environment,
                        ProcessTable* running) {
    VirtualScheduler clock(options.now.value_or(SystemClock::shared().now()));
    InlineQueueFactory queues;
    NoProcesses none;
    ProcessTable& processes = running ? *running : none;
    // The user's own settings, the window budget among them: read, never written.
    MemoryDefaultsStore defaults;
    if (auto text = readWholeFile(AppPaths::fromEnvironment(environment).defaultsFile())) {
        if (auto values = JsonDefaultsStore::decode(*text)) {
            for (auto& [key, value] : *values) defaults.set(key, std::move(value));
        }
    }
    NotificationCenter notifications;
    NoLoginItem loginItem;
    AppSettings settings(defaults, notifications, loginItem, clock);
    LiveActivityCenter liveActivities(clock);
    HomeEnvironment env(environment, options.home ? std::optional(options.home->string()) : std::nullopt);
    AIUsageModel model({env, environment.get("HOME").value_or("."), clock, clock, queues, processes, settings,
                        liveActivities, nullptr, false});
    model.rescan();
    model.pollProcesses();  // which agents run now decides running, waiting and done
    clock.runUntilIdle();

    const Date now = clock.now();
    std::map<std::string, DayRow> daily;
    if (const auto& snapshot = model.snapshot()) {
        for (const auto& event : snapshot->events()) {
            DayRow& row = daily[LocalCalendar::dayKey(event.timestamp)];
            row.input = saturatingAdd(row.input, event.input);
            row.output = saturatingAdd(row.output, event.output);
            row.cacheRead = saturatingAdd(row.cacheRead, event.cacheRead);
            row.cacheWrite = saturatingAdd(row.cacheWrite, event.cacheWrite);
            row.cost += AIPricing::cost(event);
            row.messages += 1;
        }
    }

    const auto& today = model.today();
    const auto& block = model.block();
    if (options.json) {
        nlohmann::json root;
        root["today"] = {{"input", today.input},         {"output", today.output},
                         {"cacheRead", today.cacheRead}, {"cacheWrite", today.cacheWrite},
                         {"cost", today.cost},           {"messages", today.messages},
                         {"sessions", today.sessions}};
        root["last7Days"] = nlohmann::json::array();
        for (const auto& day : model.last7Days()) {
            root["last7Days"].push_back(
                {{"date", LocalCalendar::dayKey(day.date)}, {"tokens", day.tokens}, {"cost", day.cost}});
        }
        root["daily"] = nlohmann::json::array();
        for (const auto& [key, row] : daily) {
            root["daily"].push_back({{"date", key},
                                     {"input", row.input},
                                     {"output", row.output},
                                     {"cacheRead", row.cacheRead},
                                     {"cacheWrite", row.cacheWrite},
                                     {"cost", row.cost},
                                     {"messages", row.messages}});
        }
        if (block) {
            root["block"] = {{"start", formatIsoDate(block->start)},
                             {"tokens", block->tokens},
                             {"cost", block->cost},
                             {"lastActivity", formatIsoDate(block->lastActivity)},
                             {"budget", block->budget},
                             {"burnTokensPerMinute", block->burnTokensPerMinute},
                             {"projectedTokens", block->projectedTokens}};
        } else {
            root["block"] = nullptr;
        }
        root["sessions"] = nlohmann::json::array();
        for (const auto& session : model.sessions()) root["sessions"].push_back(sessionJson(session));
        root["skipped"] = problemsJson(model.snapshot() ? model.snapshot()->problems : LogProblems{});
        // File and folder names need not be UTF-8; such bytes are written as U+FFFD instead of failing.
        return root.dump(2, ' ', false, nlohmann::json::error_handler_t::replace) + "\n";
    }

    std::string out;
    const std::int64_t todayTokens = today.input + today.output + today.cacheRead + today.cacheWrite;
    out += fmt::format("Today        {} tokens  ${:.2f}  {} messages  {} sessions\n",
                       AIFormat::tokens(todayTokens), today.cost, today.messages, today.sessions);
    out += fmt::format("             input {}  output {}  cache read {}  cache write {}\n",
                       AIFormat::tokens(today.input), AIFormat::tokens(today.output),
                       AIFormat::tokens(today.cacheRead), AIFormat::tokens(today.cacheWrite));
    out += "Last 7 days\n";
    for (const auto& day : model.last7Days()) {
        out += fmt::format("  {}  {:>9}  ${:.2f}\n", LocalCalendar::dayKey(day.date),
                           AIFormat::tokens(day.tokens), day.cost);
    }
    if (block) {
        const double left = block->start + kBlockSeconds - now;
        out += fmt::format("Window       since {}  {} tokens  ${:.2f}\n", formatIsoDate(block->start),
                           AIFormat::tokens(block->tokens), block->cost);
        out += fmt::format("             burn {}/min  projected {}  budget {} ({:.0f}%)  {} left\n",
                           AIFormat::tokens(static_cast<std::int64_t>(block->burnTokensPerMinute)),
                           AIFormat::tokens(block->projectedTokens), AIFormat::tokens(block->budget),
                           block->budget > 0 ? 100.0 * static_cast<double>(block->tokens) /
                                                   static_cast<double>(block->budget)
                                             : 0.0,
                           AIFormat::remaining(left));
    } else {
        out += "Window       none open\n";
    }
    if (const auto& snapshot = model.snapshot(); snapshot && snapshot->problems.total() > 0) {
        const auto& p = snapshot->problems;
        out += fmt::format(
            "Skipped      {} broken, {} future-dated, {} over-long lines; {} unreadable, {} too large "
            "files\n",
            p.brokenLines, p.futureLines, p.longLines, p.unreadableFiles, p.oversizedFiles);
    }
    out += fmt::format("Sessions     {}\n", model.sessions().size());
    for (const auto& s : model.sessions()) {
        out += fmt::format("  [{}] {} · {} · {} · {} tokens  ${:.2f}  active {}\n", rawValue(s.state),
                           displayName(s.tool), s.projectName, s.title, AIFormat::tokens(s.tokens), s.cost,
                           AIFormat::duration(s.activeSeconds));
    }
    return out;
}

}  // namespace vantrelle
