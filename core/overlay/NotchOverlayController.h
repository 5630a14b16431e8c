#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "activity/LiveActivityCenter.h"
#include "catalog/AppSettings.h"
#include "overlay/NotchGeometry.h"
#include "overlay/NotchState.h"
#include "overlay/OverlayPorts.h"
#include "overlay/QuietMonitor.h"
#include "platform/Environment.h"
#include "platform/SoundPlayer.h"
#include "support/NotificationCenter.h"

namespace vantrelle {

// Decides when the panel is open. It owns the panels, sees every pointer event on the desktop, runs
// the hover and close timers and reacts to full screen, calls, timers, shortcuts and meeting heads-ups.
// setExpanded() is the only way to open or close. Main thread only.
class NotchOverlayController {
public:
    enum class MouseEvent { leftMouseDown, mouseMoved, leftMouseDragged, keyDown };

    struct Dependencies {
        AppSettings& settings;
        LiveActivityCenter& activities;
        NotificationCenter& notifications;
        Scheduler& scheduler;
        const Clock& clock;
        const Environment& environment;
        OverlayWindows& windows;
        const ScreenSource& screens;
        const DragPasteboard& pasteboard;
        SoundPlayer& sounds;
        OverlayServices& services;
        QuietMonitor::Probes quietProbes;
        const CameraUse& camera;
    };

    static constexpr double kCloseDelay = 0.35;
    static constexpr double kHeadsUpHold = 12.0;

    explicit NotchOverlayController(Dependencies dependencies);
    NotchOverlayController(const NotchOverlayController&) = delete;
    NotchOverlayController& operator=(const NotchOverlayController&) = delete;

    void start();
    void rebuild();
    void setExpanded(bool expanded, std::string_view reason, bool takeFocus = true);
    // Every pointer event on the desktop, at its position in global points with y up.
    // Allocation-free unless the panel's state changes.
    void handleMouse(MouseEvent type, Point location);
    // Escape: closes an open panel and reports whether the key was used.
    bool handleEscape();
    void openFromShortcut(ShortcutTarget target);
    // The drop zone over the notch: a click opens, a drag turns to the Shelf, a drop adds to it.
    void dropZoneClicked();
    void dropZoneDragEntered();
    void dropZoneDropped(const std::vector<std::string>& fileUrls);
    void applyQuiet();
    void applyAppearance();
    void showMeetingHeadsUp();

    [[nodiscard]] Rect collapsedHitRect() const;
    [[nodiscard]] Rect expandedHitRect() const;

    [[nodiscard]] NotchState& state() { return m_state; }
    [[nodiscard]] const NotchState& state() const { return m_state; }
    [[nodiscard]] QuietMonitor& quiet() { return m_quiet; }
    [[nodiscard]] const std::optional<NotchGeometry>& geometry() const { return m_geometry; }
    [[nodiscard]] bool hiddenForFullScreen() const { return m_hiddenForFullScreen; }
    [[nodiscard]] bool isOpenPending() const { return m_openWork.has_value(); }
    [[nodiscard]] bool isClosePending() const { return m_closeWork.has_value(); }
    [[nodiscard]] bool openedByKeyboard() const { return m_openedByKeyboard; }
    [[nodiscard]] std::optional<Date> headsUpUntil() const { return m_headsUpUntil; }

private:
    struct PointerPlace {
        bool overCollapsed = false;
        bool overExpanded = false;
    };
    void followFileDrag(PointerPlace place);
    void pointerWhileCollapsed(bool isClick, PointerPlace place);
    void pointerWhileExpanded(bool isClick, bool isDrag, PointerPlace place);
    void scheduleOpen();
    void scheduleClose();
    void openOnMeetingIfShowing();
    [[nodiscard]] bool fileDragInProgress() const;
    [[nodiscard]] bool inCall() const;
    void observeNotifications();
    void scheduleHoverTest();

    AppSettings& m_settings;
    LiveActivityCenter& m_activities;
    NotificationCenter& m_notifications;
    Scheduler& m_scheduler;
    const Clock& m_clock;
    const Environment& m_environment;
    OverlayWindows& m_windows;
    const ScreenSource& m_screens;
    const DragPasteboard& m_pasteboard;
    SoundPlayer& m_sounds;
    OverlayServices& m_services;

    NotchState m_state;
    QuietMonitor m_quiet;
    std::optional<NotchGeometry> m_geometry;
    std::vector<Connection> m_observers;
    std::optional<WorkItem> m_openWork;
    std::optional<WorkItem> m_closeWork;
    const bool m_pinnedOpen;  // VANTRELLE_PIN_EXPANDED
    std::int64_t m_dragCountAtMouseDown;
    bool m_fileDragActive = false;
    bool m_hiddenForFullScreen = false;
    bool m_backdropShown = false;
    std::optional<Date> m_headsUpUntil;
    std::optional<WorkItem> m_headsUpWork;
    bool m_openedByKeyboard = false;
    std::optional<Point> m_lastPointer;  // where the last pointer event was; the pointer is there now
};

}  // namespace vantrelle
