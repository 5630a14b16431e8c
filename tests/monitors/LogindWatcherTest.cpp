// The logind watcher on a private bus, against a stand-in for logind that the test drives.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>

#include "linux/PrivateSessionBus.h"
#include "linux/TestApplication.h"
#include "monitors/LogindWatcher.h"

namespace vantrelle {
namespace {

using testing::spinUntil;

const QString kSessionPath = QStringLiteral("/org/freedesktop/login1/session/_37");

// The manager's one method the watcher calls.
class FakeManager final : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.login1.Manager")

public Q_SLOTS:
    QDBusObjectPath GetSessionByPID(uint) { return QDBusObjectPath(kSessionPath); }
};

class LogindWatcherTest : public testing::PrivateSessionBusTest {
protected:
    void emitSignal(const QString& path, const QString& interface, const QString& name,
                    const QVariantList& args) {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
        message.setArguments(args);
        logind.send(message);
    }

    QDBusConnection logind = QDBusConnection::connectToBus(bus->address(), QStringLiteral("logind"));
    QDBusConnection ours = QDBusConnection::connectToBus(bus->address(), QStringLiteral("ours"));
    FakeManager manager;
};

TEST_F(LogindWatcherTest, LockSleepAndTheLockedHintReachTheHandlers) {
    ASSERT_TRUE(logind.registerService(QStringLiteral("org.freedesktop.login1")));
    ASSERT_TRUE(logind.registerObject(QStringLiteral("/org/freedesktop/login1"), &manager,
                                      QDBusConnection::ExportAllSlots));
    std::vector<std::string> events;
    LogindWatcher watcher(ours, 4242, QString(),
                          {[&](bool locked) { events.push_back(locked ? "locked" : "unlocked"); },
                           [&](bool asleep) { events.push_back(asleep ? "asleep" : "awake"); }});
    ASSERT_TRUE(spinUntil([&] { return !watcher.sessionPath().isEmpty(); }));
    EXPECT_EQ(watcher.sessionPath(), kSessionPath);

    const QString session = QStringLiteral("org.freedesktop.login1.Session");
    emitSignal(kSessionPath, session, QStringLiteral("Lock"), {});
    emitSignal(QStringLiteral("/org/freedesktop/login1"), QStringLiteral("org.freedesktop.login1.Manager"),
               QStringLiteral("PrepareForSleep"), {true});
    emitSignal(QStringLiteral("/org/freedesktop/login1"), QStringLiteral("org.freedesktop.login1.Manager"),
               QStringLiteral("PrepareForSleep"), {false});
    emitSignal(kSessionPath, QStringLiteral("org.freedesktop.DBus.Properties"),
               QStringLiteral("PropertiesChanged"),
               {session, QVariantMap{{QStringLiteral("LockedHint"), false}}, QStringList()});
    emitSignal(QStringLiteral("/org/freedesktop/login1/session/_99"), session, QStringLiteral("Lock"), {});
    ASSERT_TRUE(spinUntil([&] { return events.size() >= 4; }));
    QCoreApplication::processEvents();
    EXPECT_EQ(events, (std::vector<std::string>{"locked", "asleep", "awake", "unlocked"}))
        << "another session's lock is not ours";
}

TEST_F(LogindWatcherTest, WithoutLogindTheAutoSessionIsWatchedAndNothingFails) {
    logind.unregisterService(QStringLiteral("org.freedesktop.login1"));
    int calls = 0;
    LogindWatcher watcher(ours, 4242, QString(), {[&](bool) { ++calls; }, [&](bool) { ++calls; }});
    ASSERT_TRUE(spinUntil([&] { return !watcher.sessionPath().isEmpty(); }));
    EXPECT_EQ(watcher.sessionPath(), QStringLiteral("/org/freedesktop/login1/session/auto"));
    EXPECT_EQ(calls, 0);
}

}  // namespace
}  // namespace vantrelle

#include "LogindWatcherTest.moc"
