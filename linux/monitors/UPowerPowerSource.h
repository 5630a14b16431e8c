#pragma once

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariantMap>
#include <functional>
#include <optional>

#include "platform/PowerSource.h"

class QDBusServiceWatcher;

namespace vantrelle {

// The battery from UPower on the system bus: the display device, which stands for all batteries
// together, read once and then followed through its PropertiesChanged signal. Without UPower, or on a
// machine whose display device is no battery, it reports none and stays quiet.
class UPowerPowerSource final : public QObject, public PowerSource {
    Q_OBJECT

public:
    static constexpr const char* kService = "org.freedesktop.UPower";
    static constexpr const char* kDisplayDevice = "/org/freedesktop/UPower/devices/DisplayDevice";
    static constexpr const char* kDeviceInterface = "org.freedesktop.UPower.Device";

    explicit UPowerPowerSource(QDBusConnection bus);
    void start(std::function<void(const std::optional<PowerReading>&)> changed) override;

    // The reading that the device's properties describe; none unless they describe a present battery.
    [[nodiscard]] static std::optional<PowerReading> readingFrom(const QVariantMap& properties);

private Q_SLOTS:
    void propertiesChanged(const QString& interface, const QVariantMap& changed,
                           const QStringList& invalidated);

private:
    void fetchAll();
    void publish();

    QDBusConnection m_bus;
    QDBusServiceWatcher* m_watcher = nullptr;
    std::function<void(const std::optional<PowerReading>&)> m_changed;
    QVariantMap m_properties;
};

}  // namespace vantrelle
