#include "ShellModel.h"

#include "overlay/IconGlyphs.h"

namespace vantrelle {

namespace {

QColor toQColor(Color c) {
    return QColor(c.red, c.green, c.blue);
}

}  // namespace

ShellModel::ShellModel(NotchOverlayController& overlay, AppSettings& settings, LiveActivityCenter& activities,
                       const Clock& clock)
    : m_overlay(overlay), m_settings(settings), m_activities(activities), m_clock(clock) {
    m_tick.setInterval(1000);
    m_tick.setTimerType(Qt::CoarseTimer);
    QObject::connect(&m_tick, &QTimer::timeout, this, [this] { refreshCells(); });

    m_stateConnection = m_overlay.state().changed.connect([this](NotchState::Field field) {
        // The panel checks its tool each time it comes up.
        if (field == NotchState::Field::isExpanded && m_overlay.state().isExpanded())
            vantrelle::ensureValidTab(m_overlay.state(), m_settings);
        Q_EMIT stateChanged();
    });
    m_settingsConnection = m_settings.changed.connect([this](std::string_view property) {
        if (property == "enabledTabs") vantrelle::ensureValidTab(m_overlay.state(), m_settings);
        Q_EMIT settingsChanged();
    });
    m_activityConnection = m_activities.currentChanged.connect([this](const auto&) { refreshCells(); });
    refreshCells();
}

void ShellModel::refreshCells() {
    const auto& current = m_activities.current();
    CollapsedCells next =
        current ? collapsedCells(*current, m_clock.now(), timerReadings()) : CollapsedCells{};
    if (next.ticksEverySecond != m_tick.isActive()) {
        if (next.ticksEverySecond) {
            m_tick.start();
        } else {
            m_tick.stop();
        }
    }
    const QString kind = activityKind();
    if (next == m_cells && kind == m_kind) return;
    m_cells = std::move(next);
    m_kind = kind;
    Q_EMIT activityChanged();
}

QString ShellModel::tab() const {
    return QString::fromUtf8(rawValue(m_overlay.state().tab()).data());
}
QString ShellModel::tabTitle() const {
    return QString::fromUtf8(info(m_overlay.state().tab()).title.data());
}
QString ShellModel::tabBlurb() const {
    return QString::fromUtf8(info(m_overlay.state().tab()).blurb.data());
}
QString ShellModel::tabIcon() const {
    return glyph(std::string(info(m_overlay.state().tab()).icon));
}
QColor ShellModel::tabTint() const {
    return toQColor(info(m_overlay.state().tab()).tint);
}

QString ShellModel::headerSubtitle() const {
    const auto& subtitle = m_overlay.state().headerSubtitle();
    return subtitle ? QString::fromStdString(*subtitle) : QString();
}

QVariantList ShellModel::tabs() const {
    QVariantList list;
    for (NotchTab t : m_settings.orderedEnabledTabs()) {
        const auto& i = info(t);
        list.push_back(QVariantMap{{QStringLiteral("raw"), QString::fromUtf8(i.raw.data())},
                                   {QStringLiteral("title"), QString::fromUtf8(i.title.data())},
                                   {QStringLiteral("icon"), glyph(std::string(i.icon))},
                                   {QStringLiteral("tint"), toQColor(i.tint)}});
    }
    return list;
}

QVariantList ShellModel::dashboardTiles() const {
    QVariantList list;
    for (DashTile tile : m_settings.dashboardTiles()) {
        const auto& i = info(tile);
        const auto tool = toolForTile(tile);
        const bool opens = tool && m_settings.isEnabled(*tool);
        list.push_back(QVariantMap{
            {QStringLiteral("raw"), QString::fromUtf8(i.raw.data())},
            {QStringLiteral("title"), QString::fromUtf8(i.title.data())},
            {QStringLiteral("icon"), glyph(std::string(i.icon))},
            {QStringLiteral("subtitle"), QString::fromUtf8(i.subtitle.data())},
            {QStringLiteral("tool"), opens ? QString::fromUtf8(rawValue(*tool).data()) : QString()},
            {QStringLiteral("tint"), tool ? toQColor(info(*tool).tint) : toQColor(NotchTheme::label)}});
    }
    return list;
}

bool ShellModel::lightAppearance() const {
    // Without glass the panel is always dark.
    return m_settings.glassPanel() && m_settings.appearance() == Appearance::light;
}

QString ShellModel::activityKind() const {
    const auto& current = m_activities.current();
    return current ? QString::fromUtf8(current->kindKey().data()) : QString();
}

QString ShellModel::glyph(const QString& symbol) {
    return glyph(symbol.toStdString());
}

QString ShellModel::glyph(const std::string& symbol) {
    if (symbol.empty()) return {};
    const char32_t code = iconGlyph(symbol);
    return QString::fromUcs4(&code, 1);
}

void ShellModel::selectTab(const QString& raw) {
    if (auto t = notchTabFromRaw(raw.toStdString())) m_overlay.state().setTab(*t);
}

void ShellModel::collapse() {
    m_overlay.state().collapse();
}

void ShellModel::escapePressed() {
    m_overlay.handleEscape();
}

void ShellModel::openSettings() {
    if (onOpenSettings) onOpenSettings();
}

void ShellModel::dropZoneDropped(const QStringList& urls) {
    std::vector<std::string> files;
    for (const auto& url : urls) {
        if (url.startsWith(QStringLiteral("file:"))) files.push_back(url.toStdString());
    }
    m_overlay.dropZoneDropped(files);
}

void ShellModel::reportShape(const QRectF& shell, const QRectF& dock) {
    if (onShapeChanged) onShapeChanged(shell, dock);
}

}  // namespace vantrelle
