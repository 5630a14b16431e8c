#include "app/UsageReport.h"

#include "activity/LiveActivityCenter.h"
#include "agents/AIUsageModel.h"
#include "agents/UsageSummary.h"
#include "catalog/AppSettings.h"
#include "platform/VirtualScheduler.h"
#include "support/AppPaths.h"
#include "support/JsonDefaultsStore.h"
#include "support/MemoryDefaultsStore.h"
#include "support/NotificationCenter.h"

namespace vantrelle {

namespace {

constexpr double kEveryLog = 1e12;  // some 30,000 years

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
    // The grouped reports cover every log on disk; the summary, the panel's 30 days.
    const double history = options.grouping ? kEveryLog : ClaudeCodeLog::window;
    AIUsageModel model({env, environment.get("HOME").value_or("."), clock, clock, queues, processes, settings,
                        liveActivities, nullptr, false, history});
    model.rescan();
    model.pollProcesses();  // which agents run now decides running, waiting and done
    clock.runUntilIdle();

    UsageReportData data;
    data.now = clock.now();
    if (const auto& snapshot = model.snapshot()) {
        data.summary = summarizeUsage({snapshot->events(), snapshot->sessions(), data.now, model.aliveTools(),
                                       settings.aiBlockTokenBudget()});
        data.daily = usageByDay(snapshot->events());
        if (options.grouping) {
            data.rows = usageRows(*options.grouping, snapshot->events(), snapshot->sessions(), options.range,
                                  data.now);
        }
        data.problems = snapshot->problems;
    }
    return data;
}

std::string usageReport(const UsageReportOptions& options, const Environment& environment,
                        ProcessTable* running) {
    const UsageReportData data = collectUsage(options, environment, running);
    if (options.grouping) {
        return options.json
                   ? usageTableJson(*options.grouping, data.rows, options.breakdown)
                   : usageTableText(*options.grouping, data.rows, {options.breakdown, options.colour});
    }
    return options.json ? usageJson(data) : usageText(data);
}

}  // namespace vantrelle
