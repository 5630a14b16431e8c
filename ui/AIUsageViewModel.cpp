#include "AIUsageViewModel.h"

#include <QDateTime>
#include <QLocale>
#include <algorithm>
#include <cmath>

#include "support/AIFormat.h"

namespace vantrelle {

namespace {

QString text(const std::string& s) {
    return QString::fromStdString(s);
}
QDateTime local(Date date) {
    return QDateTime::fromMSecsSinceEpoch(static_cast<qint64>(date.seconds * 1000));
}
constexpr double kWindow = 5 * 3600;

QString toolName(AgentTool tool) {
    switch (tool) {
        case AgentTool::claudeCode:
            return QStringLiteral("Claude Code");
        case AgentTool::codex:
            return QStringLiteral("Codex");
        case AgentTool::gemini:
            return QStringLiteral("Gemini CLI");
    }
    return {};
}

}  // namespace

AIUsageViewModel::AIUsageViewModel(AIUsageModel& model, ClaudeHookSwitch& hooks, const Clock& clock)
    : m_model(model), m_hooks(hooks), m_clock(clock) {
    m_changed = m_model.changed.connect([this] { Q_EMIT changed(); });
    m_scanning = m_model.scanningChanged.connect([this](bool) { Q_EMIT changed(); });
    m_hooksChanged = m_hooks.changed.connect([this] { Q_EMIT hooksChanged(); });
    m_hooks.refresh();
}

QString AIUsageViewModel::cost(double dollars) {
    return QStringLiteral("$") + QString::number(dollars, 'f', dollars >= 100 ? 0 : 2);
}

QVariantMap AIUsageViewModel::today() const {
    const AITotals& t = m_model.today();
    const std::int64_t tokens = t.input + t.output + t.cacheRead + t.cacheWrite;
    return {{QStringLiteral("tokens"), text(AIFormat::tokens(tokens))},
            {QStringLiteral("cost"), cost(t.cost)},
            {QStringLiteral("input"), text(AIFormat::tokens(t.input))},
            {QStringLiteral("output"), text(AIFormat::tokens(t.output))},
            {QStringLiteral("cacheRead"), text(AIFormat::tokens(t.cacheRead))},
            {QStringLiteral("cacheWrite"), text(AIFormat::tokens(t.cacheWrite))},
            {QStringLiteral("messages"), static_cast<qlonglong>(t.messages)},
            {QStringLiteral("sessions"), static_cast<qlonglong>(t.sessions)}};
}

QVariantList AIUsageViewModel::days() const {
    const auto& days = m_model.last7Days();
    std::int64_t most = 1;
    for (const auto& day : days) most = std::max(most, day.tokens);
    QVariantList list;
    for (std::size_t i = 0; i < days.size(); ++i) {
        const auto& day = days[i];
        list.push_back(QVariantMap{
            {QStringLiteral("label"),
             QLocale(QLocale::English).toString(local(day.date).date(), QStringLiteral("ddd"))},
            {QStringLiteral("tokens"), text(AIFormat::tokens(day.tokens))},
            {QStringLiteral("cost"), cost(day.cost)},
            {QStringLiteral("fraction"), static_cast<double>(day.tokens) / static_cast<double>(most)},
            {QStringLiteral("isToday"), i + 1 == days.size()}});
    }
    return list;
}

QVariantMap AIUsageViewModel::block() const {
    const auto& block = m_model.block();
    if (!block) return {};
    const double left = std::max(0.0, (block->start + kWindow) - m_clock.now());
    // The gauge fills against the budget; without one, against where the window is heading.
    const double scale = static_cast<double>(
        block->budget > 0 ? block->budget : std::max(block->projectedTokens, block->tokens));
    return {{QStringLiteral("tokens"), text(AIFormat::tokens(block->tokens))},
            {QStringLiteral("cost"), cost(block->cost)},
            {QStringLiteral("progress"),
             scale > 0 ? std::min(1.0, static_cast<double>(block->tokens) / scale) : 0.0},
            {QStringLiteral("budget"), block->budget > 0 ? text(AIFormat::tokens(block->budget)) : QString()},
            {QStringLiteral("overBudget"), block->budget > 0 && block->projectedTokens > block->budget},
            {QStringLiteral("burn"),
             text(AIFormat::tokens(static_cast<std::int64_t>(std::lround(block->burnTokensPerMinute)))) +
                 QStringLiteral("/min")},
            {QStringLiteral("projected"), text(AIFormat::tokens(block->projectedTokens))},
            {QStringLiteral("timeLeft"), text(AIFormat::remaining(left))},
            {QStringLiteral("started"), local(block->start).toString(QStringLiteral("HH:mm"))}};
}

QVariantList AIUsageViewModel::sessions() const {
    QVariantList list;
    for (const auto& s : m_model.sessions()) {
        list.push_back(
            QVariantMap{{QStringLiteral("state"), QString::fromUtf8(rawValue(s.state).data())},
                        {QStringLiteral("tool"), toolName(s.tool)},
                        {QStringLiteral("project"), text(s.projectName)},
                        {QStringLiteral("title"), text(s.title)},
                        {QStringLiteral("branch"), s.branch ? text(*s.branch) : QString()},
                        {QStringLiteral("model"), text(s.modelFamily)},
                        {QStringLiteral("tokens"), text(AIFormat::tokens(s.tokens))},
                        {QStringLiteral("cost"), cost(s.cost)},
                        {QStringLiteral("active"), text(AIFormat::duration(s.activeSeconds))},
                        {QStringLiteral("lastPrompt"), s.lastPrompt ? text(*s.lastPrompt) : QString()}});
    }
    return list;
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
