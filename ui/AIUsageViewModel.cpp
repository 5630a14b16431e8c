#include "AIUsageViewModel.h"

#include <QDateTime>
#include <QLocale>
#include <cmath>

#include "ShellEngine.h"
#include "agents/AIUsageGauges.h"
#include "support/AIFormat.h"

namespace vantrelle {

namespace {

QString text(const std::string& s) {
    return QString::fromStdString(s);
}
QString tokens(std::int64_t n) {
    return text(AIFormat::tokens(n));
}
QString cost(double dollars) {
    return text(AIFormat::cost(dollars));
}
QDateTime local(Date date) {
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(date.seconds * 1000));
}

std::vector<UsageDayListModel::Row> dayRows(const std::vector<AIDayTotals>& days) {
    const auto fractions = AIUsageGauges::dayFractions(days);
    std::vector<UsageDayListModel::Row> rows;
    for (std::size_t i = 0; i < days.size(); ++i) {
        const auto& day = days[i];
        rows.push_back({QLocale(QLocale::English).toString(local(day.date).date(), QStringLiteral("ddd")),
                        tokens(day.tokens), cost(day.cost), fractions[i], i + 1 == days.size()});
    }
    return rows;
}

std::vector<UsageSessionListModel::Row> sessionRows(const std::vector<AgentSession>& sessions) {
    std::vector<UsageSessionListModel::Row> rows;
    for (const auto& s : sessions) {
        rows.push_back({QString::fromUtf8(rawValue(s.state).data()), text(std::string(displayName(s.tool))),
                        text(s.projectName), text(s.title), s.branch ? text(*s.branch) : QString(),
                        text(s.modelFamily), tokens(s.tokens), cost(s.cost),
                        text(AIFormat::duration(s.activeSeconds)),
                        s.lastPrompt ? text(*s.lastPrompt) : QString()});
    }
    return rows;
}

}  // namespace

AIUsageViewModel::AIUsageViewModel(AIUsageModel& model, ClaudeHookSwitch& hooks, const Clock& clock)
    : m_model(model), m_hooks(hooks), m_clock(clock) {
    m_changed = m_model.changed.connect([this] {
        refreshLists();
        Q_EMIT changed();
    });
    m_scanning = m_model.scanningChanged.connect([this](bool) { Q_EMIT changed(); });
    m_hooksChanged = m_hooks.changed.connect([this] { Q_EMIT hooksChanged(); });
    m_hooks.refresh();
    refreshLists();
}

AIUsageViewModel* AIUsageViewModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::aiUsage);
}

void AIUsageViewModel::refreshLists() {
    m_days.setRows(dayRows(m_model.last7Days()));
    m_sessions.setRows(sessionRows(m_model.sessions()));
}

UsageTodayFigures AIUsageViewModel::today() const {
    const AITotals& t = m_model.today();
    return {tokens(t.input + t.output + t.cacheRead + t.cacheWrite),
            cost(t.cost),
            tokens(t.input),
            tokens(t.output),
            tokens(t.cacheRead),
            tokens(t.cacheWrite),
            t.messages,
            t.sessions};
}

UsageWindowFigures AIUsageViewModel::block() const {
    const auto& block = m_model.block();
    if (!block) return {};
    return {true,
            tokens(block->tokens),
            cost(block->cost),
            AIUsageGauges::blockFraction(*block),
            block->budget > 0 ? tokens(block->budget) : QString(),
            AIUsageGauges::overBudget(*block),
            tokens(std::llround(block->burnTokensPerMinute)) + QStringLiteral("/min"),
            tokens(block->projectedTokens),
            text(AIFormat::remaining(AIUsageGauges::secondsLeft(*block, m_clock.now()))),
            local(block->start).toString(QStringLiteral("HH:mm"))};
}

QString AIUsageViewModel::lastScan() const {
    const auto& at = m_model.lastScan();
    return at ? local(*at).toString(QStringLiteral("HH:mm:ss")) : QString();
}

void AIUsageViewModel::setShown(bool shown) {
    if (shown == m_model.isActive()) return;
    m_model.setActive(shown);
    if (shown) m_model.rescan();
}

void AIUsageViewModel::setHooksInstalled(bool installed) {
    // The answer arrives through hooksChanged; until then the switch shows what the user asked for.
    m_hooks.set(installed);
}

}  // namespace vantrelle
