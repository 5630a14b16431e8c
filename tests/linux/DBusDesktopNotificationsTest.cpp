#include <gtest/gtest.h>

#include "FakeBusService.h"
#include "PrivateSessionBus.h"
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

// As notification servers answer: Notify hands out ids, CloseNotification reports the notice closed.
QList<QDBusMessage> answer(const QDBusMessage& call, uint& lastId) {
    if (call.member() == QStringLiteral("Notify")) return {call.createReply(QVariant::fromValue(++lastId))};
    if (call.member() != QStringLiteral("CloseNotification")) return {call.createReply()};
    return {call.createReply(),
            serverSignal(QStringLiteral("NotificationClosed"), call.arguments().at(0).toUInt(), 3U)};
}

// The adapter on a private bus of each case's own, so one case's server is gone for certain in the next.
class DBusDesktopNotificationsTest : public testing::EventLoopTest {
protected:
    void SetUp() override {
        if (bus.address().isEmpty()) GTEST_SKIP() << "no dbus-daemon";
        adapter = std::make_unique<DBusDesktopNotifications>(connection);
        adapter->setReplyHandler([this](const DesktopNotificationReply& reply) { replies.push_back(reply); });
    }
    void TearDown() override {
        adapter.reset();
        QDBusConnection::disconnectFromBus(QStringLiteral("vantrelle"));
    }
    // Posts and waits for the server's answer: empty, or what went wrong.
    std::string post(const DesktopNotification& notification) {
        std::optional<std::string> error;
        adapter->post(notification, [&](const std::string& what) { error = what; });
        EXPECT_TRUE(spinUntil([&] { return error.has_value(); }));
        return error.value_or("no answer");
    }

    testing::PrivateSessionBus bus;
    QDBusConnection connection = QDBusConnection::connectToBus(bus.address(), QStringLiteral("vantrelle"));
    std::unique_ptr<DBusDesktopNotifications> adapter;
    std::vector<DesktopNotificationReply> replies;
    const DesktopNotification workDone{"pomodoro",
                                       "Work session done",
                                       "Take a break.",
                                       {{"start-break", "Start break"}},
                                       {{"session", "1"}}};
};

TEST_F(DBusDesktopNotificationsTest, PostsWithButtonsTakesDownByTagAndPassesOnlyItsOwnRepliesOn) {
    uint lastId = 0;
    testing::FakeBusService server(bus.address(), kInterface, kPath,
                                   [&lastId](const QDBusMessage& call) { return answer(call, lastId); });
    ASSERT_TRUE(server.ok());
    EXPECT_EQ(post(workDone), "");
    const auto shown = server.calls(QStringLiteral("Notify")).first().arguments();
    EXPECT_EQ(shown.at(3).toString(), QStringLiteral("Work session done"));
    EXPECT_EQ(shown.at(5).toStringList(),
              (QStringList{QStringLiteral("default"), QStringLiteral("Open"), QStringLiteral("start-break"),
                           QStringLiteral("Start break")}));

    // Taken down by its tag, also while still on the way: then it goes as soon as it is there.
    adapter->remove("pomodoro");
    adapter->post(workDone, [](const std::string&) {});
    adapter->remove("pomodoro");
    ASSERT_TRUE(spinUntil([&] { return server.calls(QStringLiteral("CloseNotification")).size() == 2; }));
    EXPECT_EQ(server.calls(QStringLiteral("CloseNotification")).at(1).arguments().at(0).toUInt(), 2u);

    EXPECT_EQ(post(workDone), "");
    server.send(serverSignal(QStringLiteral("ActionInvoked"), 9, QStringLiteral("start-break")));  // not ours
    server.send(serverSignal(QStringLiteral("ActionInvoked"), 3, QStringLiteral("start-break")));
    ASSERT_TRUE(spinUntil([&] { return !replies.empty(); }));
    ASSERT_EQ(replies.size(), 1u);
    EXPECT_EQ(replies[0].tag, "pomodoro");
    EXPECT_EQ(replies[0].action, "start-break");
    EXPECT_EQ(replies[0].userInfo, workDone.userInfo);
}

TEST_F(DBusDesktopNotificationsTest, AMissingServiceAnswersNoWithTheError) {
    std::optional<std::string> refusal;
    adapter->authorize([&](bool granted, const std::string& error) { refusal = granted ? "" : error; });
    ASSERT_TRUE(spinUntil([&] { return refusal.has_value(); }));
    EXPECT_EQ(*refusal, "org.freedesktop.DBus.Error.ServiceUnknown");
    EXPECT_NE(post(workDone), "");
}

}  // namespace
}  // namespace vantrelle
