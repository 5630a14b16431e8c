#include <gtest/gtest.h>

#include <QDBusMetaType>
#include <QDBusObjectPath>

#include "FakeBusService.h"
#include "PrivateSessionBus.h"
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

// A removable stick with a mounted partition, and an internal disk with a mounted data
// partition that must never be touched.
struct Disks {
    bool ejectable = true;
    const char* busy = "";  // the object whose calls fail, by name

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
        return ManagedObjects{
            {object(QStringLiteral("drives/Internal")), {{driveIf, drive(false, false, false)}}},
            {object(QStringLiteral("block_devices/nvme0n1p3")),
             {{blockIf, block(QStringLiteral("drives/Internal"))}, {fsIf, mounted("/data")}}},
            {object(QStringLiteral("drives/Stick")), {{driveIf, drive(true, ejectable, true)}}},
            {object(QStringLiteral("block_devices/sdb1")),
             {{blockIf, block(QStringLiteral("drives/Stick"))}, {fsIf, mounted("/media/u/STICK")}}},
        };
    }

    [[nodiscard]] QList<QDBusMessage> answer(const QDBusMessage& call) const {
        if (call.member() == QStringLiteral("GetManagedObjects"))
            return {call.createReply(QVariant::fromValue(objects()))};
        if (call.path().section(QLatin1Char('/'), -1) == QLatin1String(busy))
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

// Each row has a bus of its own, so one row's service is gone for certain before the next starts.
using UDisksRemovableDisksTest = testing::PrivateSessionBusTest;

TEST_F(UDisksRemovableDisksTest, EjectsOnlyRemovableDrivesAfterUnmountingThem) {
    qDBusRegisterMetaType<QList<QByteArray>>();
    qDBusRegisterMetaType<Interfaces>();
    qDBusRegisterMetaType<ManagedObjects>();
    struct Row {
        const char* name;
        Disks disks;
        const char* actions;
        int ejected;
        const char* failure = nullptr;
    };
    const char* busy = "target is busy";
    const std::string root = kRoot.toStdString();
    const Row rows[] = {
        {"ejectable stick", {}, "Unmount sdb1, Eject Stick, PowerOff Stick", 1},
        {"stick that only powers off", {.ejectable = false}, "Unmount sdb1, PowerOff Stick", 1},
        {"busy filesystem", {.busy = "sdb1"}, "Unmount sdb1", 0, "/block_devices/sdb1 stayed mounted: "},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.name);
        testing::PrivateSessionBus rowBus;
        FakeBusService service(rowBus.address(), QStringLiteral("org.freedesktop.UDisks2"), kRoot,
                               [fake = row.disks](const QDBusMessage& call) { return fake.answer(call); });
        ASSERT_TRUE(service.ok());
        auto connection = QDBusConnection::connectToBus(rowBus.address(), QStringLiteral("udisks-client"));
        UDisksRemovableDisks disks(connection);
        EXPECT_TRUE(disks.available());
        const auto result = disks.ejectAll();
        EXPECT_EQ(actions(service).join(QStringLiteral(", ")), QString::fromLatin1(row.actions));
        EXPECT_EQ(result.ejected, row.ejected);
        EXPECT_EQ(result.failures,
                  row.failure ? std::vector{root + row.failure + busy} : std::vector<std::string>{});
        QDBusConnection::disconnectFromBus(QStringLiteral("udisks-client"));
    }
}

TEST_F(UDisksRemovableDisksTest, WithoutTheServiceItIsUnavailableAndEjectsNothing) {
    auto connection = QDBusConnection::connectToBus(bus->address(), QStringLiteral("udisks-alone"));
    UDisksRemovableDisks disks(connection);
    EXPECT_FALSE(disks.available());
    const auto result = disks.ejectAll();
    EXPECT_EQ(result.ejected, 0);
    ASSERT_EQ(result.failures.size(), 1U);
    EXPECT_TRUE(result.failures.front().starts_with("listing failed: "));
    QDBusConnection::disconnectFromBus(QStringLiteral("udisks-alone"));
}

}  // namespace
}  // namespace vantrelle
