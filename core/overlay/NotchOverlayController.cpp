#include "overlay/NotchOverlayController.h"

#include <string>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

const char* text(bool value) {
    return value ? "true" : "false";
}

}  // namespace

NotchOverlayController::NotchOverlayController(Dependencies d)
    : m_settings(d.settings),
      m_activities(d.activities),
      m_notifications(d.notifications),
      m_scheduler(d.scheduler),
      m_clock(d.clock),
      m_environment(d.environment),
      m_windows(d.windows),
      m_screens(d.screens),
      m_pasteboard(d.pasteboard),
      m_sounds(d.sounds),
      m_services(d.services),
      m_quiet(d.scheduler, d.clock, std::move(d.quietProbes), d.camera,
              d.environment.isOne("VANTRELLE_TEST_CALL")),
      m_pinnedOpen(d.environment.isOne("VANTRELLE_PIN_EXPANDED")),
      m_dragCountAtMouseDown(d.pasteboard.changeCount()) {
    m_observers.reserve(8);
}

// MARK: start-up

void NotchOverlayController::start() {
    rebuild();
    observeNotifications();
    m_services.installShortcuts([this](ShortcutTarget target) { openFromShortcut(target); });
    m_quiet.screen = [this]() -> std::optional<ScreenInfo> {
        if (!m_geometry) return std::nullopt;
        return m_geometry->screen;
    };
    m_quiet.onChange = [this] { applyQuiet(); };
    m_quiet.start();
    if (m_environment.isOne("VANTRELLE_TEST_HOVER")) scheduleHoverTest();
    m_services.startBackgroundServices();
}

void NotchOverlayController::observeNotifications() {
    m_observers.push_back(m_notifications.observe(Notifications::notchGeometrySettingsChanged, [this] {
        rebuild();
        applyQuiet();
    }));
    m_observers.push_back(
        m_notifications.observe(Notifications::notchAppearanceChanged, [this] { applyAppearance(); }));
    // One string for both "timer finished" and the end of a focus phase.
    m_observers.push_back(m_notifications.observe(Notifications::timerFinished, [this] {
        if (!m_settings.isEnabled(NotchTab::focus) || inCall()) return;
        m_state.setTab(NotchTab::focus);
        setExpanded(true, "timer finished");
    }));
    // The user tapped the banner: no call check.
    m_observers.push_back(m_notifications.observe(Notifications::pomodoroRevealRequested, [this] {
        if (!m_settings.isEnabled(NotchTab::focus)) return;
        m_state.setTab(NotchTab::focus);
        setExpanded(true, "pomodoro banner tapped");
    }));
    m_observers.push_back(m_notifications.observe(Notifications::tavoRunStepAside, [this] {
        if (m_state.isExpanded() && m_state.tab() == NotchTab::game) setExpanded(false, "Claude needs you");
    }));
    m_observers.push_back(
        m_notifications.observe(Notifications::meetingHeadsUp, [this] { showMeetingHeadsUp(); }));
}

void NotchOverlayController::scheduleHoverTest() {
    m_scheduler.after(3.0, [this] {
        DebugLog::write(
            [&] { return std::string("test: hover over the notch (call=") + text(inCall()) + ")"; });
        for (int i = 0; i < 12; ++i) {
            m_scheduler.after(i * 0.05, [this] {
                if (m_geometry) handleMouse(MouseEvent::mouseMoved, m_geometry->notchRect.center());
            });
        }
    });
    m_scheduler.after(5.0, [this] {
        if (m_state.isExpanded()) setExpanded(false, "test reset");
        DebugLog::write([&] { return std::string("test: timer finished (call=") + text(inCall()) + ")"; });
        m_notifications.post(Notifications::timerFinished);
    });
    m_scheduler.after(7.0, [this] {
        DebugLog::write("test: done");
        m_services.terminate();
    });
}

// MARK: geometry

void NotchOverlayController::rebuild() {
    auto detected =
        NotchGeometry::detect(m_screens.screens(), m_screens.mainScreenIndex(), m_settings.simulateNotch(),
                              kSimulatedNotchWidth, kSimulatedNotchHeight);
    if (!detected) {
        // Nothing to sit on: nothing catches the pointer, and the last good geometry is kept.
        m_windows.orderOut();
        return;
    }
    m_geometry = std::move(detected);
    m_state.setNotchSize(m_geometry->notchRect.size());
    m_state.setSimulated(m_geometry->isSimulated);

    const Size expanded = NotchLayout::expandedSizeFor(m_geometry->screen.frame.width);
    NotchLayout::setExpandedSize(expanded);
    m_state.setPanelSize(expanded);
    m_state.setCollapse([this] { setExpanded(false, "close button"); });

    if (m_environment.isOne("VANTRELLE_BACKDROP") && !m_backdropShown) {
        m_windows.showBackdrop(m_geometry->screen.frame);
        m_backdropShown = true;
    }
    const bool firstLayout = !m_windows.hasPanel();
    m_windows.layout(m_geometry->panelFrame(expanded.width), m_geometry->notchRect);
    if (firstLayout) applyAppearance();
    if (!m_hiddenForFullScreen) m_windows.orderFront();
}

Rect NotchOverlayController::collapsedHitRect() const {
    if (!m_geometry) return {};
    return vantrelle::collapsedHitRect(m_geometry->notchRect, m_activities.current().has_value());
}

Rect NotchOverlayController::expandedHitRect() const {
    if (!m_geometry) return {};
    return vantrelle::expandedHitRect(m_geometry->notchRect, m_state.panelSize(), m_settings.showDock());
}

// MARK: pointer

void NotchOverlayController::handleMouse(MouseEvent type, Point p) {
    const bool isClick = type == MouseEvent::leftMouseDown;
    const bool isDrag = type == MouseEvent::leftMouseDragged;
    const bool isMove = type == MouseEvent::mouseMoved;

    m_lastPointer = p;
    if (isMove || isDrag) m_services.recordCursor(p);
    if (!m_geometry || m_hiddenForFullScreen) return;
    if (isClick) {
        // The menu bar tool's own synthetic clicks must not open or close anything.
        if (auto until = m_services.menuBarIgnoreClicksUntil(); until && m_clock.now() < *until) return;
        m_dragCountAtMouseDown = m_pasteboard.changeCount();
        m_fileDragActive = false;
    }

    const PointerPlace place{collapsedHitRect().contains(p), expandedHitRect().contains(p)};
    if (isDrag && m_settings.isEnabled(NotchTab::shelf) && fileDragInProgress()) {
        followFileDrag(place);
        return;
    }
    if (isMove && m_fileDragActive) m_fileDragActive = false;

    if (!m_state.isExpanded()) {
        pointerWhileCollapsed(isClick, place);
    } else if (!m_pinnedOpen) {
        pointerWhileExpanded(isClick, isDrag, place);
    }
}

void NotchOverlayController::followFileDrag(PointerPlace place) {
    // Turn to the Shelf once per drag, so a tab the user picks afterwards stays.
    if (!m_fileDragActive) {
        m_fileDragActive = true;
        m_state.setTab(NotchTab::shelf);
    }
    if (!place.overCollapsed && !place.overExpanded) return;
    m_closeWork.reset();
    if (!m_state.isExpanded()) setExpanded(true, "unspecified");
}

void NotchOverlayController::pointerWhileCollapsed(bool isClick, PointerPlace place) {
    if (isClick && place.overCollapsed) {
        // A click opens at once, ignoring calls and the hover delay.
        openOnMeetingIfShowing();
        setExpanded(true, "unspecified");
    } else if (!isClick && place.overCollapsed && !inCall()) {
        scheduleOpen();
    } else {
        m_openWork.reset();
    }
}

void NotchOverlayController::pointerWhileExpanded(bool isClick, bool isDrag, PointerPlace place) {
    if (isDrag) {
        // A text selection or a slider drag never closes the panel, wherever it goes.
        m_closeWork.reset();
        return;
    }
    if (isClick) {
        if (!place.overExpanded) {
            setExpanded(false, "click outside");
            return;
        }
        // Touching the panel ends a heads-up hold; from now on it behaves as if hovered.
        m_closeWork.reset();
        m_headsUpUntil.reset();
        m_headsUpWork.reset();
        return;
    }
    if (place.overCollapsed || place.overExpanded) {
        m_closeWork.reset();
        return;
    }
    if (m_headsUpUntil && *m_headsUpUntil > m_clock.now()) return;
    if (m_state.tab() == NotchTab::game && m_services.isGamePlaying()) return;
    if (m_openedByKeyboard) return;
    scheduleClose();
}

bool NotchOverlayController::handleEscape() {
    if (!m_state.isExpanded()) return false;
    setExpanded(false, "esc");
    return true;
}

void NotchOverlayController::scheduleOpen() {
    // The delay counts from the first event over the notch.
    if (m_openWork) return;
    m_openWork = m_scheduler.schedule(m_settings.hoverDelay(), [this] {
        m_openWork.reset();
        openOnMeetingIfShowing();
        setExpanded(true, "unspecified");
    });
}

void NotchOverlayController::scheduleClose() {
    if (m_closeWork) return;
    m_closeWork = m_scheduler.schedule(kCloseDelay, [this] {
        m_closeWork.reset();
        setExpanded(false, "mouse left");
    });
}

void NotchOverlayController::openOnMeetingIfShowing() {
    const auto& current = m_activities.current();
    if (current && current->is<LiveActivity::Meeting>() && m_settings.isEnabled(NotchTab::today)) {
        m_state.setTab(NotchTab::today);
    }
}

bool NotchOverlayController::fileDragInProgress() const {
    if (m_pasteboard.changeCount() == m_dragCountAtMouseDown) return false;
    return m_pasteboard.hasFileUrls();
}

bool NotchOverlayController::inCall() const {
    return m_settings.quietDuringCalls() && m_quiet.cameraBusyElsewhere();
}

// MARK: open and close

void NotchOverlayController::setExpanded(bool expanded, std::string_view reason, bool takeFocus) {
    m_openWork.reset();
    m_closeWork.reset();
    if (!expanded) {
        m_headsUpUntil.reset();
        m_headsUpWork.reset();
        m_openedByKeyboard = false;
    } else if (m_hiddenForFullScreen) {
        return;  // nothing is kept for later
    }
    if (!m_windows.hasPanel()) return;
    if (m_state.isExpanded() == expanded) return;

    DebugLog::write([&] {
        return std::string("overlay: ") + (expanded ? "expand (" : "collapse (") + std::string(reason) + ")";
    });
    if (!expanded) {
        m_windows.setPanelIgnoresMouse(true);
        m_services.stopCamera();
    } else {
        m_windows.setPanelIgnoresMouse(false);
        m_windows.raisePanel(takeFocus);
        m_services.refreshSchedule();
    }
    // The views animate this change with the morph spring.
    m_state.setExpanded(expanded);
}

void NotchOverlayController::openFromShortcut(ShortcutTarget target) {
    if (!target.tool) {
        if (m_state.isExpanded()) {
            setExpanded(false, "shortcut");
        } else {
            m_openedByKeyboard = true;
            setExpanded(true, "shortcut");
        }
        return;
    }
    const NotchTab tab = *target.tool;
    if (!m_settings.isEnabled(tab)) return;
    if (m_state.isExpanded() && m_state.tab() == tab) {
        setExpanded(false, "shortcut");
        return;
    }
    m_state.setTab(tab);
    if (m_state.isExpanded()) return;
    m_openedByKeyboard = true;
    setExpanded(true, "shortcut");
}

void NotchOverlayController::dropZoneClicked() {
    setExpanded(true, "unspecified");
}

void NotchOverlayController::dropZoneDragEntered() {
    if (!m_settings.isEnabled(NotchTab::shelf)) return;
    m_state.setTab(NotchTab::shelf);
    setExpanded(true, "unspecified");
}

void NotchOverlayController::dropZoneDropped(const std::vector<std::string>& fileUrls) {
    if (!fileUrls.empty()) m_services.addToShelf(fileUrls);
}

void NotchOverlayController::showMeetingHeadsUp() {
    const bool open = m_state.isExpanded();
    const bool call = inCall();
    if (!m_settings.meetingHeadsUp() || !m_settings.isEnabled(NotchTab::today) || open || call ||
        m_hiddenForFullScreen) {
        DebugLog::write([&] {
            return std::string("overlay: meeting heads-up skipped (open=") + text(open) +
                   " call=" + text(call) + " fullscreen=" + text(m_hiddenForFullScreen) + ")";
        });
        return;
    }
    m_state.setTab(NotchTab::today);
    // Typing in another program is not disturbed.
    setExpanded(true, "meeting heads-up", false);
    if (m_settings.playSounds()) m_sounds.play("Glass");
    m_headsUpUntil = m_clock.now() + kHeadsUpHold;
    m_headsUpWork = m_scheduler.schedule(kHeadsUpHold, [this] {
        m_headsUpWork.reset();
        m_headsUpUntil.reset();
        // A pointer inside keeps the panel; mouse-left takes over from then on.
        if (m_state.isExpanded() && !(m_lastPointer && expandedHitRect().contains(*m_lastPointer)))
            setExpanded(false, "meeting heads-up ended");
    });
}

// MARK: quiet and appearance

void NotchOverlayController::applyQuiet() {
    bool hide = false;
    if (m_quiet.fullScreen()) {
        if (m_settings.hideInFullScreen()) {
            hide = true;
        } else if (inCall()) {
            // In a full-screen call a simulated notch goes away; a real one stays.
            hide = m_state.isSimulated();
        }
    }
    if (hide == m_hiddenForFullScreen) return;
    if (hide) {
        if (m_state.isExpanded()) setExpanded(false, "full screen");
        m_hiddenForFullScreen = true;
        m_windows.orderOut();
        DebugLog::write("overlay: hidden for full screen");
    } else {
        m_hiddenForFullScreen = false;
        if (!m_geometry) return;
        m_windows.orderFront();
        DebugLog::write("overlay: back after full screen");
    }
}

void NotchOverlayController::applyAppearance() {
    m_windows.applyAppearance(m_settings.glassPanel(), m_settings.appearance());
}

}  // namespace vantrelle
