#include "SettingsWindow.h"

#include <QGuiApplication>
#include <QQuickView>
#include <QScreen>
#include <QTimer>

#include "ShellEngine.h"
#include "support/DebugLog.h"

namespace vantrelle {

SettingsWindow::SettingsWindow(QQmlEngine& engine) : m_engine(engine) {}

SettingsWindow::~SettingsWindow() = default;

void SettingsWindow::show() {
    if (!m_view) {
        m_view = std::make_unique<QQuickView>(&m_engine, nullptr);
        m_view->setTitle(QStringLiteral("Vantrelle Settings"));
        m_view->setResizeMode(QQuickView::SizeRootObjectToView);
        m_view->setMinimumSize(QSize(620, 480));
        m_view->resize(720, 560);
        // In the middle of the screen, clear of the notch at its top.
        if (const QScreen* screen = QGuiApplication::primaryScreen()) {
            const QRect area = screen->availableGeometry();
            m_view->setPosition(area.center() - QPoint(m_view->width() / 2, m_view->height() / 2));
        }
        m_view->setColor(QColor(0x1C, 0x1C, 0x1E));
        m_view->setSource(ShellEngine::componentUrl(QStringLiteral("SettingsRoot")));
        for (const auto& error : m_view->errors()) {
            DebugLog::write([&] { return "settings: qml " + error.toString().toStdString(); });
        }
        // Closed by its title bar: the view goes once the close has finished.
        QObject::connect(m_view.get(), &QWindow::visibleChanged, this, [this](bool visible) {
            if (visible) return;
            QTimer::singleShot(0, this, [this] {
                if (!m_view || m_view->isVisible()) return;  // shown again meanwhile
                m_view.reset();
                DebugLog::write("settings: window closed");
            });
        });
    }
    m_view->show();
    m_view->raise();
    m_view->requestActivate();
    DebugLog::write("settings: window shown");
}

bool SettingsWindow::isShown() const {
    return m_view && m_view->isVisible();
}

void SettingsWindow::close() {
    if (m_view) m_view->hide();  // the view goes through visibleChanged
}

}  // namespace vantrelle
