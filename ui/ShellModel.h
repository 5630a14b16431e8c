#pragma once

#include <QtQml/qqmlregistration.h>

#include <QColor>
#include <QHash>
#include <QObject>
#include <QRectF>
#include <QString>
#include <QTimer>
#include <functional>

#include "DashboardTileListModel.h"
#include "ToolListModel.h"
#include "overlay/CollapsedPresentation.h"
#include "overlay/NotchOverlayController.h"

class QQmlEngine;
class QJSEngine;

namespace vantrelle {

// The QML face of the shell (`Shell` in QML): the notch state, the settings the views read and the
// live activity, as properties that notify. Holds no state of its own beyond presentation.
class ShellModel final : public QObject {
    Q_OBJECT
    QML_NAMED_ELEMENT(Shell)
    QML_SINGLETON
    Q_PROPERTY(bool expanded READ expanded NOTIFY stateChanged)
    Q_PROPERTY(qreal notchWidth READ notchWidth NOTIFY stateChanged)
    Q_PROPERTY(qreal notchHeight READ notchHeight NOTIFY stateChanged)
    Q_PROPERTY(qreal panelWidth READ panelWidth NOTIFY stateChanged)
    Q_PROPERTY(qreal panelHeight READ panelHeight NOTIFY stateChanged)
    Q_PROPERTY(qreal collapsedWidth READ collapsedWidth NOTIFY collapsedWidthChanged)
    Q_PROPERTY(qreal activityWing READ activityWing CONSTANT)
    Q_PROPERTY(qreal cornerRadius READ cornerRadius NOTIFY stateChanged)
    Q_PROPERTY(qreal railHeight READ railHeight CONSTANT)
    Q_PROPERTY(qreal dockGap READ dockGap CONSTANT)
    Q_PROPERTY(bool simulated READ simulated NOTIFY stateChanged)
    Q_PROPERTY(QString tab READ tab NOTIFY stateChanged)
    Q_PROPERTY(QString tabTitle READ tabTitle NOTIFY stateChanged)
    Q_PROPERTY(QString tabBlurb READ tabBlurb NOTIFY stateChanged)
    Q_PROPERTY(QString tabIcon READ tabIcon NOTIFY stateChanged)
    Q_PROPERTY(QColor tabTint READ tabTint NOTIFY stateChanged)
    Q_PROPERTY(QString headerSubtitle READ headerSubtitle NOTIFY stateChanged)
    Q_PROPERTY(QString toolView READ toolView NOTIFY stateChanged)
    Q_PROPERTY(vantrelle::ToolListModel* tabs READ tabs CONSTANT)
    Q_PROPERTY(int tabIndex READ tabIndex NOTIFY tabIndexChanged)
    Q_PROPERTY(vantrelle::DashboardTileListModel* dashboardTiles READ dashboardTiles CONSTANT)
    Q_PROPERTY(bool dashboardShowsUsage READ dashboardShowsUsage NOTIFY settingsChanged)
    Q_PROPERTY(bool showDock READ showDock NOTIFY settingsChanged)
    Q_PROPERTY(bool glass READ glass NOTIFY settingsChanged)
    Q_PROPERTY(bool lightAppearance READ lightAppearance NOTIFY settingsChanged)
    Q_PROPERTY(bool hasActivity READ hasActivity NOTIFY activityChanged)
    Q_PROPERTY(QString activityKind READ activityKind NOTIFY activityChanged)
    Q_PROPERTY(QString leadingIcon READ leadingIcon NOTIFY activityChanged)
    Q_PROPERTY(bool leadingIsAgentMark READ leadingIsAgentMark NOTIFY activityChanged)
    Q_PROPERTY(bool leadingIsArtwork READ leadingIsArtwork NOTIFY activityChanged)
    Q_PROPERTY(bool pulse READ pulse NOTIFY activityChanged)
    Q_PROPERTY(QString trailingText READ trailingText NOTIFY activityChanged)
    Q_PROPERTY(QString trailingIcon READ trailingIcon NOTIFY activityChanged)
    Q_PROPERTY(qreal ring READ ring NOTIFY activityChanged)
    Q_PROPERTY(bool audioBars READ audioBars NOTIFY activityChanged)
    Q_PROPERTY(bool dimmed READ dimmed NOTIFY activityChanged)
    Q_PROPERTY(bool hasTray READ hasTray NOTIFY trayChanged)
    Q_PROPERTY(bool ownPointerEvents READ ownPointerEvents CONSTANT)
    Q_PROPERTY(qreal notchCenterX READ notchCenterX NOTIFY notchCenterChanged)
    Q_PROPERTY(bool outlined READ outlined NOTIFY outlineChanged)

public:
    ShellModel(NotchOverlayController& overlay, AppSettings& settings, LiveActivityCenter& activities,
               const Clock& clock);
    // The instance the composition root gave the engine.
    static ShellModel* create(QQmlEngine* engine, QJSEngine*);

    [[nodiscard]] bool expanded() const { return m_overlay.state().isExpanded(); }
    [[nodiscard]] qreal notchWidth() const { return m_overlay.state().notchSize().width; }
    [[nodiscard]] qreal notchHeight() const { return m_overlay.state().notchSize().height; }
    [[nodiscard]] qreal panelWidth() const { return m_overlay.state().panelSize().width; }
    [[nodiscard]] qreal panelHeight() const { return m_overlay.state().panelSize().height; }
    [[nodiscard]] qreal collapsedWidth() const { return collapsedShellWidth(notchWidth(), hasActivity()); }
    [[nodiscard]] static qreal activityWing() { return kActivityWing; }
    [[nodiscard]] static qreal railHeight() { return kRailHeight; }
    [[nodiscard]] static qreal dockGap() { return kDockGap; }
    [[nodiscard]] qreal cornerRadius() const {
        return expanded() ? kExpandedCornerRadius : kCollapsedCornerRadius;
    }
    [[nodiscard]] bool simulated() const { return m_overlay.state().isSimulated(); }
    [[nodiscard]] QString tab() const;
    [[nodiscard]] QString tabTitle() const;
    [[nodiscard]] QString tabBlurb() const;
    [[nodiscard]] QString tabIcon() const;
    [[nodiscard]] QColor tabTint() const;
    [[nodiscard]] QString headerSubtitle() const;
    // The QML view of the showing tool; empty while the tool is not built.
    [[nodiscard]] QString toolView() const { return m_toolViews.value(tab()); }
    // The tool's view is the module's component of that name.
    void registerToolView(NotchTab tab, const QString& component);
    // The component a Dashboard tile shows its live figures with; tiles without one say what they hold.
    void registerTileView(DashTile tile, const QString& component);
    [[nodiscard]] ToolListModel* tabs() { return &m_tabs; }
    // Where the showing tool sits among the enabled ones; -1 when it isn't one of them.
    [[nodiscard]] int tabIndex() const;
    // The Dashboard's eight tiles in the user's order, each with the tool it opens.
    [[nodiscard]] DashboardTileListModel* dashboardTiles() { return &m_dashboardTiles; }
    [[nodiscard]] bool dashboardShowsUsage() const;
    [[nodiscard]] bool showDock() const { return m_settings.showDock(); }
    [[nodiscard]] bool glass() const { return m_settings.glassPanel(); }
    [[nodiscard]] bool lightAppearance() const;
    [[nodiscard]] bool hasActivity() const { return m_activities.current().has_value(); }
    [[nodiscard]] QString activityKind() const;
    [[nodiscard]] QString leadingIcon() const { return glyph(m_cells.leadingSymbol); }
    [[nodiscard]] bool leadingIsAgentMark() const { return m_cells.leadingIsAgentMark; }
    [[nodiscard]] bool leadingIsArtwork() const { return m_cells.leadingIsArtwork; }
    [[nodiscard]] bool pulse() const { return m_cells.pulse; }
    [[nodiscard]] QString trailingText() const { return QString::fromStdString(m_cells.trailingText); }
    [[nodiscard]] QString trailingIcon() const { return glyph(m_cells.trailingSymbol); }
    [[nodiscard]] qreal ring() const { return m_cells.ring.value_or(-1); }
    [[nodiscard]] bool audioBars() const { return m_cells.trailingIsAudioBars; }
    [[nodiscard]] bool dimmed() const { return m_cells.dimmed; }

    // The glyph of the icon font for a symbol name; empty for an empty name.
    Q_INVOKABLE [[nodiscard]] static QString glyph(const QString& symbol);
    [[nodiscard]] static QString glyph(const std::string& symbol);

    Q_INVOKABLE void selectTab(const QString& raw);
    Q_INVOKABLE void collapse();
    Q_INVOKABLE void escapePressed();
    // Opens the settings window, on `page` when one is named.
    Q_INVOKABLE void openSettings(const QString& page = QString());
    Q_INVOKABLE void quit();
    // Where the desktop shows no tray icon, the panel's header offers what the tray menu would.
    [[nodiscard]] bool hasTray() const { return m_hasTray; }
    void setHasTray(bool shown);
    // A drawn notch gets a hairline and a glow when the user wants it found on any desktop.
    [[nodiscard]] bool outlined() const { return simulated() && m_settings.notchOutline(); }
    Q_INVOKABLE void dropZoneClicked() { m_overlay.dropZoneClicked(); }
    Q_INVOKABLE void dropZoneDragEntered() { m_overlay.dropZoneDragEntered(); }
    Q_INVOKABLE void dropZoneDropped(const QStringList& urls);
    // Where the desktop sends no raw pointer events (X clients under a Wayland compositor), the notch's
    // own windows report the pointer. Set once by the composition root, before any view loads.
    [[nodiscard]] bool ownPointerEvents() const { return m_ownPointerEvents; }
    void setOwnPointerEvents(bool on) { m_ownPointerEvents = on; }
    // Where the notch's middle falls in the panel window, in its pixels; negative until the first layout.
    [[nodiscard]] qreal notchCenterX() const { return m_notchCenterX; }
    void setNotchCenterX(qreal x);
    // The pointer over one of our own windows, at a point in desktop pixels.
    void pointerMoved(QPoint desktopPoint);
    // The pointer left our windows for somewhere this program can't see.
    void pointerLeft();
    // The drawn shell, its corner radius and the dock in window pixels, for the window shape.
    Q_INVOKABLE void reportShape(const QRectF& shell, qreal cornerRadius, const QRectF& dock);

    // Timers the closed notch reads each second, from the focus models; read at once, so a timer
    // restored at start shows its digits from the first frame.
    void setTimerReadings(std::function<TimerReadings()> readings);
    std::function<void()> onOpenSettings;
    std::function<void()> onQuit;
    std::function<void(QRectF shell, qreal cornerRadius, QRectF dock)> onShapeChanged;

Q_SIGNALS:
    void stateChanged();
    void settingsChanged();
    void activityChanged();
    void collapsedWidthChanged();
    void tabIndexChanged();
    void trayChanged();
    void outlineChanged();
    void notchCenterChanged();

private:
    void refreshCells();
    void refreshLists();

    NotchOverlayController& m_overlay;
    AppSettings& m_settings;
    LiveActivityCenter& m_activities;
    const Clock& m_clock;
    std::function<TimerReadings()> m_timerReadings = [] { return TimerReadings{}; };
    CollapsedCells m_cells;
    QString m_kind;
    QHash<QString, QString> m_toolViews;
    QHash<QString, QString> m_tileViews;
    ToolListModel m_tabs;
    DashboardTileListModel m_dashboardTiles;
    bool m_hasTray = true;
    bool m_ownPointerEvents = false;
    qreal m_notchCenterX = -1;
    QTimer m_tick;   // runs only while the shown activity counts each second
    QTimer m_leave;  // a leave of our windows counts only if no enter follows at once
    Connection m_stateConnection;
    Connection m_settingsConnection;
    Connection m_activityConnection;
};

}  // namespace vantrelle
