#include "monitors/UPowerPowerSource.h"

#include <QDBusMessage>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>
#include <QDBusServiceWatcher>
#include <algorithm>
#include <cmath>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

constexpr uint kTypeBattery = 2;  // UPower's device type for a battery
constexpr uint kLastState = 6;    // states past "pending discharge" are unknown to us

QString text(const char* value) {
    return QString::fromLatin1(value);
}

}  // namespace

UPowerPowerSource::UPowerPowerSource(QDBusConnection bus) : m_bus(std::move(bus)) {}

std::optional<PowerReading> UPowerPowerSource::readingFrom(const QVariantMap& properties) {
    bool typeOk = false;
    const uint type = properties.value(QStringLiteral("Type")).toUInt(&typeOk);
    if (!typeOk || type != kTypeBattery || !properties.value(QStringLiteral("IsPresent")).toBool())
        return std::nullopt;
    bool percentOk = false;
    const double percent = properties.value(QStringLiteral("Percentage")).toDouble(&percentOk);
    if (!percentOk || !std::isfinite(percent)) return std::nullopt;
    PowerReading reading;
    reading.percent = std::clamp(percent, 0.0, 100.0);
    const uint state = properties.value(QStringLiteral("State")).toUInt();
    reading.state = state <= kLastState ? static_cast<PowerState>(state) : PowerState::unknown;
    reading.timeToEmpty =
        std::max<qlonglong>(0, properties.value(QStringLiteral("TimeToEmpty")).toLongLong());
    reading.timeToFull = std::max<qlonglong>(0, properties.value(QStringLiteral("TimeToFull")).toLongLong());
    return reading;
}

void UPowerPowerSource::start(std::function<void(const std::optional<PowerReading>&)> changed) {
    m_changed = std::move(changed);
    if (!m_bus.isConnected()) {
        DebugLog::write("battery: no system bus");
        return publish();
    }
    m_bus.connect(text(kService), text(kDisplayDevice), QStringLiteral("org.freedesktop.DBus.Properties"),
                  QStringLiteral("PropertiesChanged"), this,
                  SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
    // UPower may start after us or restart: read everything again when it (re)appears.
    m_watcher =
        new QDBusServiceWatcher(text(kService), m_bus, QDBusServiceWatcher::WatchForOwnerChange, this);
    connect(m_watcher, &QDBusServiceWatcher::serviceOwnerChanged, this,
            [this](const QString&, const QString&, const QString& owner) {
                if (!owner.isEmpty()) return fetchAll();
                m_properties.clear();
                publish();
            });
    fetchAll();
}

void UPowerPowerSource::fetchAll() {
    QDBusMessage call = QDBusMessage::createMethodCall(text(kService), text(kDisplayDevice),
                                                       QStringLiteral("org.freedesktop.DBus.Properties"),
                                                       QStringLiteral("GetAll"));
    call << text(kDeviceInterface);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, 5000), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        const QDBusPendingReply<QVariantMap> reply = *finished;
        finished->deleteLater();
        if (!reply.isValid()) {
            DebugLog::write(
                [&] { return "battery: UPower not available (" + reply.error().name().toStdString() + ")"; });
            m_properties.clear();
        } else {
            m_properties = reply.value();
        }
        publish();
    });
}

void UPowerPowerSource::propertiesChanged(const QString& interface, const QVariantMap& changed,
                                          const QStringList& invalidated) {
    if (interface != text(kDeviceInterface)) return;
    for (auto it = changed.begin(); it != changed.end(); ++it) m_properties.insert(it.key(), it.value());
    if (!invalidated.isEmpty()) return fetchAll();
    publish();
}

void UPowerPowerSource::publish() {
    if (m_changed) m_changed(readingFrom(m_properties));
}

}  // namespace vantrelle
