#include "toggles/UDisksRemovableDisks.h"

#include <QDBusArgument>
#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QDBusReply>
#include <QMap>

namespace vantrelle {

namespace {

const QString kService = QStringLiteral("org.freedesktop.UDisks2");
const QString kBlock = QStringLiteral("org.freedesktop.UDisks2.Block");
const QString kFilesystem = QStringLiteral("org.freedesktop.UDisks2.Filesystem");
const QString kDrive = QStringLiteral("org.freedesktop.UDisks2.Drive");
constexpr int kCallTimeoutMs = 20000;  // an unmount waits for writes to reach the disk

using Interfaces = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, Interfaces>;

bool flag(const QVariantMap& properties, const char* name) {
    return properties.value(QString::fromLatin1(name)).toBool();
}

// "MountPoints" is an array of byte strings; only whether there is one matters.
bool isMounted(const QVariantMap& filesystem) {
    const QVariant points = filesystem.value(QStringLiteral("MountPoints"));
    if (points.canConvert<QDBusArgument>()) {
        QList<QByteArray> list;
        points.value<QDBusArgument>() >> list;
        return !list.isEmpty();
    }
    return !points.value<QList<QByteArray>>().isEmpty();
}

QString call(QDBusConnection& bus, const QString& path, const QString& interface, const QString& method) {
    auto message = QDBusMessage::createMethodCall(kService, path, interface, method);
    message << QVariantMap();
    const QDBusMessage reply = bus.call(message, QDBus::Block, kCallTimeoutMs);
    return reply.type() == QDBusMessage::ErrorMessage ? reply.errorMessage() : QString();
}

}  // namespace

bool UDisksRemovableDisks::available() {
    auto* interface = m_bus.interface();
    return interface && interface->isServiceRegistered(kService).value();
}

EjectResult UDisksRemovableDisks::ejectAll() {
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<ManagedObjects>();
    EjectResult result;
    const QDBusReply<ManagedObjects> reply = m_bus.call(QDBusMessage::createMethodCall(
        kService, QStringLiteral("/org/freedesktop/UDisks2"),
        QStringLiteral("org.freedesktop.DBus.ObjectManager"), QStringLiteral("GetManagedObjects")));
    if (!reply.isValid()) {
        result.failures.push_back("listing failed: " + reply.error().message().toStdString());
        return result;
    }
    const ManagedObjects objects = reply.value();

    // Drives in path order; one whose filesystem stays mounted must not lose power under it.
    QMap<QString, bool> drives;  // drive -> every filesystem came off
    for (auto it = objects.begin(); it != objects.end(); ++it) {
        const Interfaces& interfaces = it.value();
        if (!interfaces.contains(kFilesystem) || !interfaces.contains(kBlock)) continue;
        const QVariantMap block = interfaces.value(kBlock);
        if (flag(block, "HintSystem") || flag(block, "HintIgnore") ||
            !isMounted(interfaces.value(kFilesystem)))
            continue;
        const QString drive = block.value(QStringLiteral("Drive")).value<QDBusObjectPath>().path();
        const QVariantMap driveProperties = objects.value(QDBusObjectPath(drive)).value(kDrive);
        if (!flag(driveProperties, "Removable") && !flag(driveProperties, "MediaRemovable")) continue;
        const QString error = call(m_bus, it.key().path(), kFilesystem, QStringLiteral("Unmount"));
        if (!error.isEmpty())
            result.failures.push_back(it.key().path().toStdString() +
                                      " stayed mounted: " + error.toStdString());
        drives[drive] = drives.value(drive, true) && error.isEmpty();
    }
    for (auto it = drives.begin(); it != drives.end(); ++it) {
        if (!it.value()) continue;
        const QString& drive = it.key();
        const QVariantMap properties = objects.value(QDBusObjectPath(drive)).value(kDrive);
        const bool ejectable = flag(properties, "Ejectable");
        QString error;
        if (ejectable) error = call(m_bus, drive, kDrive, QStringLiteral("Eject"));
        // A stick that ejected still draws power until it is powered off too.
        if (error.isEmpty() && flag(properties, "CanPowerOff"))
            error = call(m_bus, drive, kDrive, QStringLiteral("PowerOff"));
        if (!error.isEmpty())
            result.failures.push_back(drive.toStdString() +
                                      " was unmounted, not ejected: " + error.toStdString());
        else
            ++result.ejected;
    }
    return result;
}

}  // namespace vantrelle
