#include "ShellModel.h"

#include <algorithm>

#include "DesktopCoordinates.h"
#include "ShellEngine.h"
#include "ShellTheme.h"
#include "overlay/IconGlyphs.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

QString text(std::string_view s) {
    return QString::fromUtf8(s.data(), static_cast<qsizetype>(s.size()));
}

}  // namespace

ShellModel::ShellModel(NotchOverlayController& overlay, AppSettings& settings, LiveActivityCenter& activities,
                       const Clock& clock)
    : m_overlay(overlay), m_settings(settings), m_activities(activities), m_clock(clock) {
    m_tick.setInterval(1000);
    m_tick.setTimerType(Qt::CoarseTimer);
    QObject::connect(&m_tick, &QTimer::timeout, this, [this] { refreshCells(); });
    m_leave.setSingleShot(true);
    m_leave.setInterval(80);
    QObject::connect(&m_leave, &QTimer::timeout, this, [this] {
        DebugLog::write("overlay: the pointer left the notch's windows");
        // Somewhere off every rectangle of ours: far outside any screen.
        constexpr double kNowhere = -1e7;
        m_overlay.handleMouse(NotchOverlayController::MouseEvent::mouseMoved, Point{kNowhere, kNowhere});
    });
    QObject::connect(this, &ShellModel::stateChanged, this, &ShellModel::collapsedWidthChanged);
    QObject::connect(this, &ShellModel::activityChanged, this, &ShellModel::collapsedWidthChanged);
    QObject::connect(this, &ShellModel::stateChanged, this, &ShellModel::tabIndexChanged);
    QObject::connect(this, &ShellModel::settingsChanged, this, &ShellModel::tabIndexChanged);
    QObject::connect(this, &ShellModel::stateChanged, this, &ShellModel::outlineChanged);
    QObject::connect(this, &ShellModel::settingsChanged, this, &ShellModel::outlineChanged);

    m_stateConnection = m_overlay.state().changed.connect([this](NotchState::Field field) {
        // The panel checks its tool each time it comes up.
        if (field == NotchState::Field::isExpanded && m_overlay.state().isExpanded())
            vantrelle::ensureValidTab(m_overlay.state(), m_settings);
        Q_EMIT stateChanged();
    });
    m_settingsConnection = m_settings.changed.connect([this](std::string_view property) {
        if (property == "enabledTabs") vantrelle::ensureValidTab(m_overlay.state(), m_settings);
        refreshLists();
        Q_EMIT settingsChanged();
    });
    m_activityConnection = m_activities.currentChanged.connect([this](const auto&) { refreshCells(); });
    refreshCells();
    refreshLists();
}

ShellModel* ShellModel::create(QQmlEngine* engine, QJSEngine*) {
    return ShellEngine::provide(engine, &ShellEngine::ViewModels::shell);
}

void ShellModel::setTimerReadings(std::function<TimerReadings()> readings) {
    m_timerReadings = std::move(readings);
    refreshCells();
}

void ShellModel::refreshCells() {
    const auto& current = m_activities.current();
    CollapsedCells next =
        current ? collapsedCells(*current, m_clock.now(), m_timerReadings()) : CollapsedCells{};
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
    return text(rawValue(m_overlay.state().tab()));
}
QString ShellModel::tabTitle() const {
    return text(info(m_overlay.state().tab()).title);
}
QString ShellModel::tabBlurb() const {
    return text(info(m_overlay.state().tab()).blurb);
}
QString ShellModel::tabIcon() const {
    return glyph(std::string(info(m_overlay.state().tab()).icon));
}
QColor ShellModel::tabTint() const {
    return ShellTheme::color(info(m_overlay.state().tab()).tint);
}

QString ShellModel::headerSubtitle() const {
    const auto& subtitle = m_overlay.state().headerSubtitle();
    return subtitle ? QString::fromStdString(*subtitle) : QString();
}

void ShellModel::registerToolView(NotchTab tab, const QString& component) {
    m_toolViews.insert(text(rawValue(tab)), ShellEngine::componentUrl(component).toString());
    Q_EMIT stateChanged();
}

void ShellModel::registerTileView(DashTile tile, const QString& component) {
    m_tileViews.insert(text(info(tile).raw), ShellEngine::componentUrl(component).toString());
    refreshLists();
}

int ShellModel::tabIndex() const {
    const auto tabs = m_settings.orderedEnabledTabs();
    const auto found = std::find(tabs.begin(), tabs.end(), m_overlay.state().tab());
    return found == tabs.end() ? -1 : static_cast<int>(found - tabs.begin());
}

bool ShellModel::dashboardShowsUsage() const {
    const auto& tiles = m_settings.dashboardTiles();
    return std::find(tiles.begin(), tiles.end(), DashTile::aiUsage) != tiles.end();
}

void ShellModel::refreshLists() {
    std::vector<ToolListModel::Row> tools;
    for (NotchTab t : m_settings.orderedEnabledTabs()) {
        const auto& i = info(t);
        tools.push_back({text(i.raw), text(i.title), glyph(std::string(i.icon)), ShellTheme::color(i.tint)});
    }
    m_tabs.setRows(std::move(tools));

    std::vector<DashboardTileListModel::Row> tiles;
    for (DashTile tile : m_settings.dashboardTiles()) {
        const auto& i = info(tile);
        const auto tool = toolForTile(tile);
        const bool opens = tool && m_settings.isEnabled(*tool);
        tiles.push_back({text(i.raw), text(i.title), glyph(std::string(i.icon)), text(i.subtitle),
                         opens ? text(rawValue(*tool)) : QString(),
                         ShellTheme::color(tool ? info(*tool).tint : NotchTheme::label),
                         m_tileViews.value(text(i.raw))});
    }
    m_dashboardTiles.setRows(std::move(tiles));
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

void ShellModel::openSettings(const QString& page) {
    if (!page.isEmpty()) {
        m_settings.setSettingsTab(settingsTabFromRaw(page.toStdString()).value_or(SettingsTab::general));
    }
    if (onOpenSettings) onOpenSettings();
}

void ShellModel::pointerMoved(QPoint desktopPoint) {
    m_leave.stop();
    m_overlay.handleMouse(NotchOverlayController::MouseEvent::mouseMoved,
                          DesktopCoordinates::current().toGlobal(desktopPoint));
}

void ShellModel::pointerLeft() {
    // Raising or reshaping our windows makes the pointer leave one and enter the other without moving;
    // only a leave that no enter follows is the pointer going elsewhere.
    m_leave.start();
}

void ShellModel::setNotchCenterX(qreal x) {
    if (x == m_notchCenterX) return;
    m_notchCenterX = x;
    Q_EMIT notchCenterChanged();
}

void ShellModel::quit() {
    if (onQuit) onQuit();
}

void ShellModel::setHasTray(bool shown) {
    if (shown == m_hasTray) return;
    m_hasTray = shown;
    Q_EMIT trayChanged();
}

void ShellModel::dropZoneDropped(const QStringList& urls) {
    std::vector<std::string> files;
    for (const auto& url : urls) {
        if (url.startsWith(QStringLiteral("file:"))) files.push_back(url.toStdString());
    }
    m_overlay.dropZoneDropped(files);
}

void ShellModel::reportShape(const QRectF& shell, qreal cornerRadius, const QRectF& dock) {
    if (onShapeChanged) onShapeChanged(shell, cornerRadius, dock);
}

}  // namespace vantrelle
