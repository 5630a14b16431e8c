#pragma once

#include <QObject>
#include <QPoint>
#include <QRectF>
#include <functional>
#include <memory>

#include "DesktopCoordinates.h"
#include "overlay/OverlayPorts.h"

class QQmlEngine;
class QQuickView;

namespace vantrelle {

class X11Desktop;

// The notch panel and the drop zone as Qt Quick windows. Both sit outside the window manager's
// control (no task bar entry, every workspace, never focused unless asked), above everything. Without
// a compositor the panel is shaped to the drawn shell so the desktop stays visible around it; with
// one it is transparent. A collapsed panel takes no pointer input at all.
class QuickOverlayWindows final : public QObject, public OverlayWindows {
public:
    QuickOverlayWindows(QQmlEngine& engine, const X11Desktop& desktop);
    ~QuickOverlayWindows() override;

    [[nodiscard]] bool hasPanel() const override { return m_panel != nullptr; }
    void layout(const Rect& panelFrame, const Rect& dropZoneFrame) override;
    void orderFront() override;
    void orderOut() override;
    void setPanelIgnoresMouse(bool ignores) override;
    void raisePanel(bool takeFocus) override;
    void applyAppearance(bool glass, Appearance appearance) override;
    void showBackdrop(const Rect& screenFrame) override;

    // The drawn shell with its corner radius and the dock, in panel pixels, as the root view reports them.
    void setShape(const QRectF& shell, qreal cornerRadius, const QRectF& dock);

    [[nodiscard]] QQuickView* panel() const { return m_panel.get(); }
    // The middle of the drop zone in panel pixels after each layout: the collapsed shell centres there,
    // so the two windows' edges meet on the same pixel.
    std::function<void(qreal)> onNotchCenterChanged;
    // The pointer over or off our windows, from their own events, in desktop pixels. Set before the
    // first layout by a program that hears no raw pointer events (XWayland).
    std::function<void(QPoint)> onPointerMoved;
    std::function<void()> onPointerLeft;

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

public:
    // Destroys the windows and their views; later calls do nothing until the next layout.
    void closeViews();

private:
    // A window showing a component of the shell's QML module.
    std::unique_ptr<QQuickView> makeWindow(const QString& component, bool transparent);
    void applyShapes();
    void applyDropZoneShape();

    QQmlEngine& m_engine;
    const X11Desktop& m_desktop;
    const bool m_composited;
    std::unique_ptr<QQuickView> m_backdrop;
    std::unique_ptr<QQuickView> m_panel;
    std::unique_ptr<QQuickView> m_dropZone;
    QRectF m_shell;
    qreal m_cornerRadius = 0;
    QRectF m_dock;
    bool m_ignoresMouse = true;
};

}  // namespace vantrelle
