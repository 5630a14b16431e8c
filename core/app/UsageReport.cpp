#include "app/UsageReport.h"

#include "activity/LiveActivityCenter.h"
#include "agents/AIUsageModel.h"
#include "agents/IsoDate.h"
#include "agents/UsageSummary.h"
#include "catalog/AppSettings.h"
#include "platform/VirtualScheduler.h"
#include "support/AppPaths.h"
#include "support/JsonDefaultsStore.h"
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

UsageReportData collectUsage(const UsageReportOptions& options, const Environment& environment,
                             ProcessTable* running) {
    VirtualScheduler clock(options.now.value_or(SystemClock::shared().now()));
    InlineQueueFactory queues;
    NoProcesses none;
    ProcessTable& processes = running ? *running : none;
    // The user's own settings, the window budget among them: read, never written.
    MemoryDefaultsStore defaults;
    JsonDefaultsStore::copySaved(AppPaths::fromEnvironment(environment).defaultsFile(), defaults);
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

    UsageReportData data;
    data.now = clock.now();
    if (const auto& snapshot = model.snapshot()) {
        data.summary = summarizeUsage({snapshot->events(), snapshot->sessions(), data.now, model.aliveTools(),
                                       settings.aiBlockTokenBudget()});
        data.daily = usageByDay(snapshot->events());
        data.problems = snapshot->problems;
    }
    return data;
}

std::string usageReport(const UsageReportOptions& options, const Environment& environment,
                        ProcessTable* running) {
    const UsageReportData data = collectUsage(options, environment, running);
    return options.json ? usageJson(data) : usageText(data);
}

}  // namespace vantrelle
