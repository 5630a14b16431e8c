#include <gtest/gtest.h>

#include <QObject>
#include <QStringList>
#include <QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusConnectionInterface>
#include <memory>
#include <set>

#include "TestApplication.h"
#include "fakes/FakeOverlayPorts.h"
#include "fakes/LogCapture.h"
#include "focus/PomodoroFixture.h"
#include "notifications/DBusDesktopNotifications.h"

namespace vantrelle {
namespace {

// A small notification server on its own bus connection, as a desktop would run one.
class NotificationServer : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.freedesktop.Notifications")
public:
    struct Shown {
        QString summary;
        QString body;
        QStringList actions;
    };

    explicit NotificationServer(QDBusConnection bus) : m_bus(std::move(bus)) {
        m_bus.registerObject(QStringLiteral("/org/freedesktop/Notifications"), this,
                             QDBusConnection::ExportAllSlots | QDBusConnection::ExportAllSignals);
        m_bus.registerService(QStringLiteral("org.freedesktop.Notifications"));
    }
    ~NotificationServer() override {
        // Gives the name back, so the next test starts on a bus without a server.
        m_bus.unregisterService(QStringLiteral("org.freedesktop.Notifications"));
        m_bus.unregisterObject(QStringLiteral("/org/freedesktop/Notifications"));
    }
    NotificationServer(const NotificationServer&) = delete;
    NotificationServer& operator=(const NotificationServer&) = delete;

    // The user clicks a button of notification `id`; the server then closes it, as servers do.
    void click(uint id, const QString& action) {
        Q_EMIT ActionInvoked(id, action);
        CloseNotification(id);
    }

    std::map<uint, Shown> open;
    int notifies = 0;
    int closes = 0;

public Q_SLOTS:
    uint Notify(const QString&, uint, const QString&, const QString& summary, const QString& body,
                const QStringList& actions, const QVariantMap&, int) {
        ++notifies;
        open[++m_lastId] = Shown{summary, body, actions};
        return m_lastId;
    }
    void CloseNotification(uint id) {
        ++closes;
        if (open.erase(id) > 0) Q_EMIT NotificationClosed(id, 3);
    }
    QString GetServerInformation(QString& vendor, QString& version, QString& specVersion) {
        vendor = QStringLiteral("test");
        version = QStringLiteral("1");
        specVersion = QStringLiteral("1.2");
        return QStringLiteral("test-server");
    }
    QStringList GetCapabilities() { return {QStringLiteral("actions"), QStringLiteral("body")}; }

Q_SIGNALS:
    void ActionInvoked(uint id, const QString& actionKey);
    void NotificationClosed(uint id, uint reason);

private:
    QDBusConnection m_bus;
    uint m_lastId = 0;
};

class NotificationBusTest : public testing::PomodoroFixture {
protected:
    static void SetUpTestSuite() { testing::testApplication(); }
    void SetUp() override {
        if (!QDBusConnection::sessionBus().isConnected())
            GTEST_SKIP() << "no session bus (run under dbus-run-session)";
    }
    void makeModel() {
        adapter = std::make_unique<DBusDesktopNotifications>();
        PomodoroFixture::makeModel(adapter.get());
    }

    std::unique_ptr<DBusDesktopNotifications> adapter;
};

TEST_F(NotificationBusTest, OneWorkDoneAtATimeAndItsButtonsDriveTheTimer) {
    auto serverBus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("server"));
    NotificationServer server(serverBus);
    makeModel();

    finishWorkBlock();
    ASSERT_TRUE(testing::spinUntil([&] { return server.notifies == 1; }));
    const auto& first = server.open.begin()->second;
    EXPECT_EQ(first.summary, QStringLiteral("Work session done"));
    EXPECT_EQ(first.body,
              QStringLiteral("1 session done today. Take a 5 minute short break, or keep working."));
    EXPECT_EQ(first.actions,
              (QStringList{QStringLiteral("default"), QStringLiteral("Open"),
                           QStringLiteral("pomodoro.start-break"), QStringLiteral("Start break"),
                           QStringLiteral("pomodoro.keep-working"), QStringLiteral("Keep working")}));

    scheduler.advance(1);
    model->stop();  // takes the notification down
    ASSERT_TRUE(testing::spinUntil([&] { return server.open.empty(); }));
    finishWorkBlock();
    finishWorkBlock();  // the second replaces the first
    ASSERT_TRUE(testing::spinUntil([&] { return server.notifies == 3 && server.open.size() == 1; }));
    EXPECT_EQ(server.open.size(), 1U);

    scheduler.advance(1);
    server.click(server.open.begin()->first, QStringLiteral("pomodoro.start-break"));
    ASSERT_TRUE(testing::spinUntil([&] { return model->status() == PomodoroStatus::running; }));
    EXPECT_EQ(model->phase(), PomodoroPhase::shortBreak);
    EXPECT_EQ(notifier->authorized(), true);
}

TEST_F(NotificationBusTest, ClickingTheBannerAsksForTheFocusTool) {
    auto serverBus = QDBusConnection::connectToBus(QDBusConnection::SessionBus, QStringLiteral("server2"));
    NotificationServer server(serverBus);
    makeModel();
    int reveals = 0;
    auto observed = notifications.observe(Notifications::pomodoroRevealRequested, [&] { ++reveals; });
    finishWorkBlock();
    ASSERT_TRUE(testing::spinUntil([&] { return server.open.size() == 1; }));
    scheduler.advance(1);
    server.click(server.open.begin()->first, QStringLiteral("default"));
    ASSERT_TRUE(testing::spinUntil([&] { return reveals == 1; }));
    EXPECT_TRUE(model->awaitingChoice()) << "the choice stays";
}

TEST_F(NotificationBusTest, AMissingServiceChangesNothing) {
    ASSERT_FALSE(QDBusConnection::sessionBus().interface()->isServiceRegistered(
        QStringLiteral("org.freedesktop.Notifications")));
    testing::LogCapture log;
    makeModel();
    finishWorkBlock();
    ASSERT_TRUE(testing::spinUntil([&] { return notifier->authorized().has_value(); }));
    EXPECT_EQ(notifier->authorized(), false);
    EXPECT_TRUE(model->awaitingChoice());
    EXPECT_EQ(model->phase(), PomodoroPhase::shortBreak);
    finishWorkBlock();  // dropped without a call
    scheduler.advance(1);
    model->resume();
    EXPECT_EQ(model->status(), PomodoroStatus::running);
    EXPECT_NE(
        log.text().find("notifications: authorization failed org.freedesktop.DBus.Error.ServiceUnknown"),
        std::string::npos)
        << log.text();
}

}  // namespace
}  // namespace vantrelle

#include "DBusDesktopNotificationsTest.moc"
