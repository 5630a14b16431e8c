#include <gtest/gtest.h>

#include <QDBusMetaType>
#include <QDBusObjectPath>
#include <QStandardPaths>

#include "FakeBusService.h"
#include "PrivateSessionBus.h"
#include "TestApplication.h"
#include "toggles/UDisksRemovableDisks.h"

namespace vantrelle {
namespace {

using testing::FakeBusService;
using Interfaces = QMap<QString, QVariantMap>;
using ManagedObjects = QMap<QDBusObjectPath, Interfaces>;

const QString kRoot = QStringLiteral("/org/freedesktop/UDisks2");

QDBusObjectPath object(const QString& name) {
    return QDBusObjectPath(kRoot + QLatin1Char('/') + name);
}

// A removable stick with one or two mounted partitions, and an internal disk with a mounted data
// partition that must never be touched.
struct Disks {
    bool ejectable = true;
    bool secondPartition = false;
    bool withStick = true;
    const char* busy = "";  // objects whose calls fail, by name, comma-separated

    [[nodiscard]] ManagedObjects objects() const {
        const auto mounted = [](const char* point) {
            return QVariantMap{
                {QStringLiteral("MountPoints"),
                 QVariant::fromValue(QList<QByteArray>{QByteArray(point, qsizetype(qstrlen(point)) + 1)})}};
        };
        const auto block = [](const QString& drive) {
            return QVariantMap{{QStringLiteral("Drive"), QVariant::fromValue(object(drive))},
                               {QStringLiteral("HintSystem"), false}};
        };
        const auto drive = [](bool removable, bool ejects, bool powers) {
            return QVariantMap{{QStringLiteral("Removable"), removable},
                               {QStringLiteral("MediaRemovable"), removable},
                               {QStringLiteral("Ejectable"), ejects},
                               {QStringLiteral("CanPowerOff"), powers}};
        };
        const QString blockIf = QStringLiteral("org.freedesktop.UDisks2.Block");
        const QString fsIf = QStringLiteral("org.freedesktop.UDisks2.Filesystem");
        const QString driveIf = QStringLiteral("org.freedesktop.UDisks2.Drive");
        ManagedObjects objects{
            {object(QStringLiteral("drives/Internal")), {{driveIf, drive(false, false, false)}}},
            {object(QStringLiteral("block_devices/nvme0n1p3")),
             {{blockIf, block(QStringLiteral("drives/Internal"))}, {fsIf, mounted("/data")}}},
        };
        if (!withStick) return objects;
        objects[object(QStringLiteral("drives/Stick"))] = {{driveIf, drive(true, ejectable, true)}};
        objects[object(QStringLiteral("block_devices/sdb1"))] = {
            {blockIf, block(QStringLiteral("drives/Stick"))}, {fsIf, mounted("/media/u/STICK")}};
        if (secondPartition)
            objects[object(QStringLiteral("block_devices/sdb2"))] = {
                {blockIf, block(QStringLiteral("drives/Stick"))}, {fsIf, mounted("/media/u/STICK2")}};
        return objects;
    }

    [[nodiscard]] QList<QDBusMessage> answer(const QDBusMessage& call) const {
        if (call.member() == QStringLiteral("GetManagedObjects"))
            return {call.createReply(QVariant::fromValue(objects()))};
        if (QString::fromLatin1(busy)
                .split(QLatin1Char(','))
                .contains(call.path().section(QLatin1Char('/'), -1)))
            return {call.createErrorReply(QStringLiteral("org.freedesktop.UDisks2.Error.DeviceBusy"),
                                          QStringLiteral("target is busy"))};
        return {call.createReply()};
    }
};

// "Unmount sdb1" for each call that changes something, in order.
QStringList actions(const FakeBusService& service) {
    QStringList done;
    for (const auto& call : service.calls())
        if (call.member() != QStringLiteral("GetManagedObjects"))
            done << call.member() + QLatin1Char(' ') + call.path().section(QLatin1Char('/'), -1);
    return done;
}

TEST(UDisksRemovableDisksTest, EjectsOnlyRemovableDrivesAfterUnmountingThem) {
    if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
        GTEST_SKIP() << "dbus-daemon is not installed";
    testing::testApplication();
    qDBusRegisterMetaType<QList<QByteArray>>();
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<ManagedObjects>();
    struct Row {
        const char* name;
        Disks disks;
        const char* actions;
        int ejected;
        std::vector<std::string> failures;
    };
    const auto stick = [](bool ejectable, bool second, const char* busy, bool present = true) {
        return Disks{ejectable, second, present, busy};
    };
    const std::vector<Row> rows{
        {"ejectable stick", stick(true, false, ""), "Unmount sdb1, Eject Stick, PowerOff Stick", 1, {}},
        {"stick that only powers off", stick(false, false, ""), "Unmount sdb1, PowerOff Stick", 1, {}},
        {"both partitions",
         stick(true, true, ""),
         "Unmount sdb1, Unmount sdb2, Eject Stick, PowerOff Stick",
         1,
         {}},
        {"busy filesystem",
         stick(true, false, "sdb1"),
         "Unmount sdb1",
         0,
         {"/org/freedesktop/UDisks2/block_devices/sdb1 stayed mounted: target is busy"}},
        {"one busy partition keeps the drive",
         stick(true, true, "sdb2"),
         "Unmount sdb1, Unmount sdb2",
         0,
         {"/org/freedesktop/UDisks2/block_devices/sdb2 stayed mounted: target is busy"}},
        {"eject refused",
         stick(true, false, "Stick"),
         "Unmount sdb1, Eject Stick",
         0,
         {"/org/freedesktop/UDisks2/drives/Stick was unmounted, not ejected: target is busy"}},
        {"only the internal disk", stick(true, false, "", false), "", 0, {}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        testing::PrivateSessionBus bus;
        FakeBusService service(bus.address(), QStringLiteral("org.freedesktop.UDisks2"), kRoot,
                               [fake = row.disks](const QDBusMessage& call) { return fake.answer(call); });
        ASSERT_TRUE(service.ok());
        auto connection = QDBusConnection::connectToBus(bus.address(), QStringLiteral("udisks-client"));
        UDisksRemovableDisks disks(connection);
        EXPECT_TRUE(disks.available());
        const auto result = disks.ejectAll();
        EXPECT_EQ(actions(service).join(QStringLiteral(", ")), QString::fromLatin1(row.actions));
        EXPECT_EQ(result.ejected, row.ejected);
        EXPECT_EQ(result.failures, row.failures);
        QDBusConnection::disconnectFromBus(QStringLiteral("udisks-client"));
    }
}

TEST(UDisksRemovableDisksTest, WithoutTheServiceItIsUnavailableAndEjectsNothing) {
    if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty())
        GTEST_SKIP() << "dbus-daemon is not installed";
    testing::testApplication();
    testing::PrivateSessionBus bus;
    auto connection = QDBusConnection::connectToBus(bus.address(), QStringLiteral("udisks-alone"));
    UDisksRemovableDisks disks(connection);
    EXPECT_FALSE(disks.available());
    const auto result = disks.ejectAll();
    EXPECT_EQ(result.ejected, 0);
    ASSERT_EQ(result.failures.size(), 1U);
    EXPECT_EQ(result.failures.front().rfind("listing failed: ", 0), 0U);
    QDBusConnection::disconnectFromBus(QStringLiteral("udisks-alone"));
}

}  // namespace
}  // namespace vantrelle
