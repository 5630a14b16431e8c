#include <gtest/gtest.h>

#include "FakeBusService.h"
#include "PrivateSessionBus.h"
#include "TestApplication.h"
#include "fakes/LogCapture.h"
#include "focus/PomodoroFixture.h"
#include "notifications/DBusDesktopNotifications.h"

namespace vantrelle {
namespace {

using testing::spinUntil;

const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kInterface = QStringLiteral("org.freedesktop.Notifications");

QDBusMessage serverSignal(const QString& member, uint id, const QVariant& detail) {
    auto signal = QDBusMessage::createSignal(kPath, kInterface, member);
    signal << id << detail;
    return signal;
}

// The pomodoro timer's notices through the adapter, against a notification server of the test's own on
// a private bus: Notify hands out ids, CloseNotification reports the notice closed, as servers do.
class NotificationBusTest : public testing::PomodoroFixture {
protected:
    static void SetUpTestSuite() { testing::testApplication(); }
    void SetUp() override {
        if (bus.address().isEmpty()) GTEST_SKIP() << "no dbus-daemon";
        adapter = std::make_unique<DBusDesktopNotifications>(connection);
        makeModel(adapter.get());
    }
    void TearDown() override {
        model.reset();
        notifier.reset();
        adapter.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("vantrelle"));
    }
    static QList<QDBusMessage> answer(const QDBusMessage& call, uint& lastId) {
        if (call.member() == QStringLiteral("Notify"))
            return {call.createReply(QVariant::fromValue(++lastId))};
        if (call.member() != QStringLiteral("CloseNotification")) return {call.createReply()};
        return {call.createReply(),
                serverSignal(QStringLiteral("NotificationClosed"), call.arguments().at(0).toUInt(), 3U)};
    }
    std::unique_ptr<testing::FakeBusService> startServer() {
        return std::make_unique<testing::FakeBusService>(
            bus.address(), kInterface, kPath,
            [lastId = 0U](const QDBusMessage& call) mutable { return answer(call, lastId); });
    }

    testing::PrivateSessionBus bus;
    QDBusConnection connection = QDBusConnection::connectToBus(bus.address(), QStringLiteral("vantrelle"));
    std::unique_ptr<DBusDesktopNotifications> adapter;
};

TEST_F(NotificationBusTest, OneWorkDoneAtATimeAndItsButtonsDriveTheTimer) {
    const auto server = startServer();
    ASSERT_TRUE(server->ok());
    const auto closed = [&] {
        QList<uint> ids;
        for (const auto& call : server->calls(QStringLiteral("CloseNotification")))
            ids << call.arguments().at(0).toUInt();
        return ids;
    };
    finishWorkBlock();
    ASSERT_TRUE(spinUntil([&] { return server->calls(QStringLiteral("Notify")).size() == 1; }));
    const auto shown = server->calls(QStringLiteral("Notify")).first().arguments();
    EXPECT_EQ(shown.at(3).toString(), QStringLiteral("Work session done"));
    EXPECT_EQ(shown.at(4).toString(),
              QStringLiteral("1 session done today. Take a 5 minute short break, or keep working."));
    EXPECT_EQ(shown.at(5).toStringList(),
              (QStringList{QStringLiteral("default"), QStringLiteral("Open"),
                           QStringLiteral("pomodoro.start-break"), QStringLiteral("Start break"),
                           QStringLiteral("pomodoro.keep-working"), QStringLiteral("Keep working")}));

    scheduler.advance(1);
    model->stop();  // takes the notification down
    ASSERT_TRUE(spinUntil([&] { return closed() == QList<uint>{1}; }));
    finishWorkBlock();
    finishWorkBlock();  // the second replaces the first
    ASSERT_TRUE(spinUntil([&] { return closed() == (QList<uint>{1, 2}); })) << closed().size();

    scheduler.advance(1);
    int reveals = 0;
    auto observed = notifications.observe(Notifications::pomodoroRevealRequested, [&] { ++reveals; });
    server->send(serverSignal(QStringLiteral("ActionInvoked"), 3, QStringLiteral("default")));
    ASSERT_TRUE(spinUntil([&] { return reveals == 1; }));
    EXPECT_TRUE(model->awaitingChoice()) << "a click on the banner leaves the choice";
    server->send(serverSignal(QStringLiteral("ActionInvoked"), 3, QStringLiteral("pomodoro.start-break")));
    ASSERT_TRUE(spinUntil([&] { return model->status() == PomodoroStatus::running; }));
    EXPECT_EQ(model->phase(), PomodoroPhase::shortBreak);
    EXPECT_EQ(notifier->authorized(), true);
}

TEST_F(NotificationBusTest, AMissingServiceChangesNothing) {
    testing::LogCapture log;
    finishWorkBlock();
    ASSERT_TRUE(spinUntil([&] { return notifier->authorized().has_value(); }));
    EXPECT_EQ(notifier->authorized(), false);
    EXPECT_TRUE(model->awaitingChoice());
    EXPECT_NE(
        log.text().find("notifications: authorization failed org.freedesktop.DBus.Error.ServiceUnknown"),
        std::string::npos)
        << log.text();
}

}  // namespace
}  // namespace vantrelle
