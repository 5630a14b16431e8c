#pragma once

#include <QDBusArgument>
#include <QDBusConnection>
#include <QObject>
#include <functional>

#include "platform/TrayItems.h"

namespace vantrelle {

// Hands the items' NewIcon signals, from whichever program, to a plain callback.
class SniIconRelay final : public QObject {
    Q_OBJECT

public:
    std::function<void()> onNewIcon;

public Q_SLOTS:
    void newIcon() {
        if (onNewIcon) onNewIcon();
    }
};

// Tray icons from the StatusNotifierItem watcher on the session bus: the watcher lists the items, each
// item tells its title, id and icon, and opens on Activate or, failing that, ContextMenu.
class SniTrayItems final : public TrayItems {
public:
    static constexpr int kCallTimeoutMs = 500;  // a hung program must not stall the scan

    explicit SniTrayItems(QDBusConnection bus) : m_bus(std::move(bus)) {}
    [[nodiscard]] bool hasWatcher() override;
    [[nodiscard]] std::vector<TrayItem> items() override;
    bool activate(const std::string& address, int x, int y) override;
    void watchIcons(std::function<void()> onNewIcon) override;

    // An IconPixmap value (a(iiay)); anything of another shape is no pictures.
    [[nodiscard]] static std::vector<TrayPixmap> pixmapsFrom(const QVariant& value);

    // "service/object/path" or a bare service, whose item sits at /StatusNotifierItem.
    [[nodiscard]] static std::pair<QString, QString> splitAddress(const QString& address);

private:
    QDBusConnection m_bus;
    SniIconRelay m_relay;
    bool m_subscribed = false;
};

}  // namespace vantrelle
