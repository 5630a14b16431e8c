#pragma once

#include <QDBusConnection>

#include "platform/TrayItems.h"

namespace vantrelle {

// Tray icons from the StatusNotifierItem watcher on the session bus: the watcher lists the items, each
// item tells its title, id and icon, and opens on Activate or, failing that, ContextMenu.
class SniTrayItems final : public TrayItems {
public:
    static constexpr int kCallTimeoutMs = 500;  // a hung program must not stall the scan

    explicit SniTrayItems(QDBusConnection bus) : m_bus(std::move(bus)) {}
    [[nodiscard]] bool hasWatcher() override;
    [[nodiscard]] std::vector<TrayItem> items() override;
    bool activate(const std::string& address, int x, int y) override;

    // "service/object/path" or a bare service, whose item sits at /StatusNotifierItem.
    [[nodiscard]] static std::pair<QString, QString> splitAddress(const QString& address);

private:
    QDBusConnection m_bus;
};

}  // namespace vantrelle
