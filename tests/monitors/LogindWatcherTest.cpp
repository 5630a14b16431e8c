// The logind watcher on a private bus, against a stand-in for logind that the test drives.
#include <gtest/gtest.h>

#include <QCoreApplication>
#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QElapsedTimer>
#include <QProcess>
#include <QStandardPaths>

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

class LogindWatcherTest : public ::testing::Test {
protected:
    static void SetUpTestSuite() {
        testing::testApplication();
        if (QStandardPaths::findExecutable(QStringLiteral("dbus-daemon")).isEmpty()) return;
        daemon = new QProcess;
        daemon->start(QStringLiteral("dbus-daemon"), {QStringLiteral("--session"), QStringLiteral("--nofork"),
                                                      QStringLiteral("--print-address=1")});
        if (daemon->waitForReadyRead(10000)) address = QString::fromUtf8(daemon->readLine().trimmed());
    }
    static void TearDownTestSuite() {
        if (!daemon) return;
        daemon->terminate();
        daemon->waitForFinished(5000);
        delete daemon;
        daemon = nullptr;
    }
    void SetUp() override {
        if (address.isEmpty()) GTEST_SKIP() << "no dbus-daemon";
    }
    void emitSignal(const QString& path, const QString& interface, const QString& name,
                    const QVariantList& args) {
        QDBusMessage message = QDBusMessage::createSignal(path, interface, name);
        message.setArguments(args);
        logind.send(message);
    }

    static inline QProcess* daemon = nullptr;
    static inline QString address;
    QDBusConnection logind = QDBusConnection::connectToBus(address, QStringLiteral("logind"));
    QDBusConnection ours = QDBusConnection::connectToBus(address, QStringLiteral("ours"));
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
