#include "QuickOverlayWindows.h"

#include <QEnterEvent>
#include <QMouseEvent>
#include <QQuickView>
#include <QRegion>
#include <cmath>

#include "ShellEngine.h"
#include "overlay/NotchGeometry.h"
#include "support/DebugLog.h"
#include "x11/X11Desktop.h"

namespace vantrelle {

namespace {

constexpr Qt::WindowFlags kOverlayFlags = Qt::FramelessWindowHint | Qt::WindowStaysOnTopHint |
                                          Qt::X11BypassWindowManagerHint | Qt::WindowDoesNotAcceptFocus |
                                          Qt::Tool;

// How far a row `dy` pixels into a corner of radius r stays clear of the curve.
int cornerInset(int r, double dy) {
    return static_cast<int>(std::lround(r - std::sqrt(std::max(0.0, double(r) * r - dy * dy))));
}

// A rectangle with rounded corners, as X shapes want it: whole rows of pixels.
QRegion roundedRegion(const QRectF& rectF, qreal radius, bool roundTop) {
    const QRect rect = rectF.toAlignedRect();
    if (rect.isEmpty()) return {};
    const int r = std::min<int>(qRound(radius), std::min(rect.width(), rect.height()) / 2);
    QRegion region(rect.adjusted(0, roundTop ? r : 0, 0, -r));
    for (int row = 0; row < r; ++row) {
        const int inset = cornerInset(r, r - row - 0.5);
        if (roundTop) region += QRect(rect.x() + inset, rect.top() + row, rect.width() - 2 * inset, 1);
        region += QRect(rect.x() + inset, rect.bottom() - row, rect.width() - 2 * inset, 1);
    }
    return region;
}

}  // namespace

QuickOverlayWindows::QuickOverlayWindows(QQmlEngine& engine, const X11Desktop& desktop)
    : m_engine(engine), m_desktop(desktop), m_composited(desktop.hasCompositor()) {
    DebugLog::write([&] { return std::string("overlay: compositor=") + (m_composited ? "true" : "false"); });
}

QuickOverlayWindows::~QuickOverlayWindows() = default;

void QuickOverlayWindows::closeViews() {
    m_dropZone.reset();
    m_panel.reset();
    m_backdrop.reset();
}

std::unique_ptr<QQuickView> QuickOverlayWindows::makeWindow(const QString& component, bool transparent) {
    auto view = std::make_unique<QQuickView>(&m_engine, nullptr);
    view->setFlags(kOverlayFlags);
    view->setResizeMode(QQuickView::SizeRootObjectToView);
    if (transparent) {
        QSurfaceFormat format = view->format();
        format.setAlphaBufferSize(8);
        view->setFormat(format);
        view->setColor(Qt::transparent);
    } else {
        view->setColor(Qt::black);
    }
    view->setSource(ShellEngine::componentUrl(component));
    for (const auto& error : view->errors()) {
        DebugLog::write([&] { return "overlay: qml " + error.toString().toStdString(); });
    }
    return view;
}

void QuickOverlayWindows::layout(const Rect& panelFrame, const Rect& dropZoneFrame) {
    const auto coordinates = DesktopCoordinates::current();
    if (!m_panel) {
        m_panel = makeWindow(QStringLiteral("NotchRoot"), true);
        // Scripts that drive or photograph the panel wait for this line instead of guessing.
        QObject::connect(
            m_panel.get(), &QQuickWindow::frameSwapped, this, [] { DebugLog::write("overlay: first frame"); },
            Qt::SingleShotConnection);
        // Without a compositor the drop zone is painted black like the notch it covers.
        m_dropZone = makeWindow(QStringLiteral("DropZone"), m_composited);
        if (onPointerMoved) {
            m_panel->installEventFilter(this);
            m_dropZone->installEventFilter(this);
        }
    }
    const QRect panel = coordinates.toDesktop(panelFrame);
    const QRect dropZone = coordinates.toDesktop(dropZoneFrame);
    m_panel->setGeometry(panel);
    m_dropZone->setGeometry(dropZone);
    if (onNotchCenterChanged) onNotchCenterChanged(dropZone.x() - panel.x() + dropZone.width() / 2.0);
    applyShapes();
}

bool QuickOverlayWindows::eventFilter(QObject* watched, QEvent* event) {
    // Window-level crossings, not item hover: raising the panel and then the drop zone makes the
    // pointer leave and enter both without moving, and only these events say so at once.
    switch (event->type()) {
        case QEvent::Enter:
            onPointerMoved(static_cast<QEnterEvent*>(event)->globalPosition().toPoint());
            break;
        case QEvent::MouseMove:
            onPointerMoved(static_cast<QMouseEvent*>(event)->globalPosition().toPoint());
            break;
        case QEvent::Leave:
            onPointerLeft();
            break;
        default:
            break;
    }
    return QObject::eventFilter(watched, event);
}

void QuickOverlayWindows::orderFront() {
    if (!m_panel) return;
    m_panel->show();
    m_dropZone->show();
    m_panel->raise();
    m_dropZone->raise();  // the drop zone stays above the panel
    applyShapes();
}

void QuickOverlayWindows::orderOut() {
    if (!m_panel) return;
    m_panel->hide();
    m_dropZone->hide();
}

void QuickOverlayWindows::setPanelIgnoresMouse(bool ignores) {
    m_ignoresMouse = ignores;
    if (m_panel && ignores) m_panel->setFlag(Qt::WindowDoesNotAcceptFocus, true);
    applyShapes();
}

void QuickOverlayWindows::raisePanel(bool takeFocus) {
    if (!m_panel) return;
    m_panel->raise();
    m_dropZone->raise();
    if (takeFocus) {
        m_panel->setFlag(Qt::WindowDoesNotAcceptFocus, false);
        m_panel->requestActivate();
    }
}

void QuickOverlayWindows::applyAppearance(bool, Appearance) {
    // The views read glass and appearance from the settings; the windows themselves carry no theme.
}

void QuickOverlayWindows::showBackdrop(const Rect& screenFrame) {
    m_backdrop = makeWindow(QStringLiteral("Backdrop"), false);
    m_backdrop->setFlag(Qt::WindowTransparentForInput, true);
    m_backdrop->setFlag(Qt::WindowStaysOnTopHint, false);
    m_backdrop->setGeometry(DesktopCoordinates::current().toDesktop(screenFrame));
    m_backdrop->show();
    m_backdrop->lower();
}

void QuickOverlayWindows::setShape(const QRectF& shell, qreal cornerRadius, const QRectF& dock) {
    if (shell == m_shell && cornerRadius == m_cornerRadius && dock == m_dock) return;
    m_shell = shell;
    m_cornerRadius = cornerRadius;
    m_dock = dock;
    applyShapes();
}

void QuickOverlayWindows::applyShapes() {
    if (!m_panel || !m_panel->handle()) return;
    const qreal ratio = m_panel->devicePixelRatio();
    const auto scaled = [ratio](const QRectF& r) {
        return QRectF(r.x() * ratio, r.y() * ratio, r.width() * ratio, r.height() * ratio);
    };
    QRegion drawn = roundedRegion(scaled(m_shell), m_cornerRadius * ratio, false);
    drawn += roundedRegion(scaled(m_dock), m_dock.height() / 2 * ratio, true);
    m_desktop.setShapes(*m_panel, m_composited ? std::nullopt : std::optional<QRegion>(drawn),
                        m_ignoresMouse ? QRegion() : drawn);
    applyDropZoneShape();
}

void QuickOverlayWindows::applyDropZoneShape() {
    if (!m_dropZone || !m_dropZone->handle()) return;
    // Painted black without a compositor, the drop zone has the collapsed notch's rounded bottom
    // corners, or its square ones would show over the shell's.
    const qreal ratio = m_dropZone->devicePixelRatio();
    const QRegion shape = roundedRegion(QRectF(QPointF(0, 0), QSizeF(m_dropZone->size()) * ratio),
                                        kCollapsedCornerRadius * ratio, false);
    m_desktop.setShapes(*m_dropZone, m_composited ? std::nullopt : std::optional<QRegion>(shape), shape);
}

}  // namespace vantrelle
