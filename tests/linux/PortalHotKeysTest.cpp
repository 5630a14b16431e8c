#include <gtest/gtest.h>

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusVariant>

#include "FakeBusService.h"
#include "PrivateSessionBus.h"
#include "fakes/LogCapture.h"
#include "shortcuts/PortalHotKeys.h"

namespace vantrelle {
namespace {

using testing::FakeBusService;
using testing::spinUntil;

const QString kPortal = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPortalPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kShortcuts = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");

// The portal's GlobalShortcuts as a desktop runs it: each call answers with a Request object whose
// Response carries the result.
struct PortalBehaviour {
    bool offersShortcuts = true;
    uint bindResponse = 0;
    bool sessionHandleAsPath = false;  // portals differ in how they type session_handle
};

QString senderPart(const QDBusMessage& call) {
    return call.service().mid(1).replace(QLatin1Char('.'), QLatin1Char('_'));
}

QList<QDBusMessage> answerPortal(const PortalBehaviour& portal, const QDBusMessage& call) {
    const QString member = call.member();
    if (member == QStringLiteral("Get")) {
        if (!portal.offersShortcuts)
            return {call.createErrorReply(QDBusError::UnknownInterface, QStringLiteral("no such interface"))};
        return {call.createReply(QVariant::fromValue(QDBusVariant(uint(1))))};
    }
    if (member != QStringLiteral("CreateSession") && member != QStringLiteral("BindShortcuts"))
        return {call.createReply()};
    const auto options = qdbus_cast<QVariantMap>(call.arguments().constLast());
    const QString request = kPortalPath + QStringLiteral("/request/") + senderPart(call) + QLatin1Char('/') +
                            options.value(QStringLiteral("handle_token")).toString();
    QVariantMap results;
    uint response = portal.bindResponse;
    if (member == QStringLiteral("CreateSession")) {
        response = 0;
        const QString session = kPortalPath + QStringLiteral("/session/") + senderPart(call) +
                                QLatin1Char('/') +
                                options.value(QStringLiteral("session_handle_token")).toString();
        results[QStringLiteral("session_handle")] =
            portal.sessionHandleAsPath ? QVariant::fromValue(QDBusObjectPath(session)) : QVariant(session);
    }
    auto signal = QDBusMessage::createSignal(request, QStringLiteral("org.freedesktop.portal.Request"),
                                             QStringLiteral("Response"));
    signal << response << results;
    return {call.createReply(QVariant::fromValue(QDBusObjectPath(request))), signal};
}

// "id=trigger" for each shortcut of a BindShortcuts call.
QStringList boundTriggers(const QDBusMessage& bind) {
    QStringList bound;
    const auto list = bind.arguments().at(1).value<QDBusArgument>();
    list.beginArray();
    while (!list.atEnd()) {
        QString id;
        QVariantMap properties;
        list.beginStructure();
        list >> id >> properties;
        list.endStructure();
        bound << id + QLatin1Char('=') + properties.value(QStringLiteral("preferred_trigger")).toString();
    }
    list.endArray();
    return bound;
}

// A private bus with the portal on it and our adapter as its client, with two combos registered.
struct Rig {
    explicit Rig(PortalBehaviour behaviour) {
        portal = std::make_unique<FakeBusService>(
            bus.address(), kPortal, kPortalPath,
            [behaviour](const QDBusMessage& call) { return answerPortal(behaviour, call); });
        connection = QDBusConnection::connectToBus(bus.address(), name);
        keys = PortalHotKeys::probe(connection);
        if (!keys) return;
        keys->install([this](std::uint32_t id) { fired.push_back(id); });
        registered = keys->registerHotKey(1, 40, 6144) == 0 &&  // Ctrl+Alt+K
                     keys->registerHotKey(2, 96, 0) == 0;       // F5
    }
    ~Rig() {
        keys.reset();
        QDBusConnection::disconnectFromBus(name);
    }

    [[nodiscard]] bool ready() const { return portal->ok() && keys && registered; }
    [[nodiscard]] QList<QDBusMessage> binds() const { return portal->calls(QStringLiteral("BindShortcuts")); }
    bool waitForBinds(qsizetype count) const {
        return spinUntil([&] { return binds().size() >= count; });
    }
    void press(const QString& session, const QString& id) const {
        auto signal = QDBusMessage::createSignal(kPortalPath, kShortcuts, QStringLiteral("Activated"));
        signal << QVariant::fromValue(QDBusObjectPath(session)) << id << qulonglong(1) << QVariantMap();
        if (!portal->send(signal)) ADD_FAILURE() << "could not send " << session.toStdString();
    }

    const QString name = QStringLiteral("vantrelle-under-test");
    testing::PrivateSessionBus bus;
    std::unique_ptr<FakeBusService> portal;
    QDBusConnection connection{QString()};
    std::unique_ptr<PortalHotKeys> keys;
    bool registered = false;
    std::vector<std::uint32_t> fired;
};

QString sessionOf(const QDBusMessage& bind) {
    return bind.arguments().at(0).value<QDBusObjectPath>().path();
}

// Each rig has a bus of its own, so one case's portal never answers the next; the suite's bus only
// tells whether dbus-daemon is there.
using PortalHotKeysTest = testing::PrivateSessionBusTest;

TEST_F(PortalHotKeysTest, ProbeFindsOnlyAPortalWithGlobalShortcuts) {
    auto connection = QDBusConnection::connectToBus(bus->address(), QStringLiteral("probe"));
    EXPECT_FALSE(PortalHotKeys::probe(connection)) << "no portal on the bus";
    QDBusConnection::disconnectFromBus(QStringLiteral("probe"));
    Rig rig({.offersShortcuts = false});
    EXPECT_TRUE(rig.portal->ok());
    EXPECT_FALSE(rig.keys) << "a portal without global shortcuts";
}

TEST_F(PortalHotKeysTest, BindsEveryComboInOneSessionPassesOnlyItsOwnPressesAndRebindsOnChange) {
    for (const bool asPath : {false, true}) {
        SCOPED_TRACE(asPath ? "session handle as object path" : "session handle as string");
        Rig rig({.sessionHandleAsPath = asPath});
        ASSERT_TRUE(rig.ready());
        EXPECT_EQ(rig.keys->registerHotKey(3, 53, 0), -2) << "a key the portal has no name for";
        EXPECT_TRUE(rig.portal->calls(QStringLiteral("CreateSession")).isEmpty()) << "binding waits a turn";
        ASSERT_TRUE(rig.waitForBinds(1));
        EXPECT_EQ(boundTriggers(rig.binds().first()),
                  (QStringList{QStringLiteral("vantrelle-1=CTRL+ALT+k"), QStringLiteral("vantrelle-2=F5")}));
        EXPECT_EQ(rig.portal->calls(QStringLiteral("CreateSession")).size(), 1);

        const QString session = sessionOf(rig.binds().first());
        rig.press(session, QStringLiteral("vantrelle-2"));
        rig.press(session, QStringLiteral("vantrelle-3"));  // refused above
        rig.press(session, QStringLiteral("other-app-1"));  // not ours
        rig.press(kPortalPath + QStringLiteral("/session/x/y"),
                  QStringLiteral("vantrelle-1"));  // not our session
        rig.press(session, QStringLiteral("vantrelle-1"));
        ASSERT_TRUE(spinUntil([&] { return !rig.fired.empty() && rig.fired.back() == 1; }));
        EXPECT_EQ(rig.fired, (std::vector<std::uint32_t>{2, 1}));

        // Unregistering rebinds the rest in a fresh session and closes the old one.
        rig.keys->unregisterHotKey(2);
        ASSERT_TRUE(rig.waitForBinds(2));
        const QString fresh = sessionOf(rig.binds().at(1));
        EXPECT_EQ(boundTriggers(rig.binds().at(1)), QStringList{QStringLiteral("vantrelle-1=CTRL+ALT+k")});
        const auto closes = rig.portal->calls(QStringLiteral("Close"));
        ASSERT_EQ(closes.size(), 1);
        EXPECT_EQ(closes.first().path(), session);
        rig.press(session, QStringLiteral("vantrelle-1"));  // the old session's presses no longer count
        rig.press(fresh, QStringLiteral("vantrelle-2"));
        rig.press(fresh, QStringLiteral("vantrelle-1"));
        ASSERT_TRUE(spinUntil([&] { return rig.fired.size() == 3; }));
        EXPECT_EQ(rig.fired, (std::vector<std::uint32_t>{2, 1, 1}));
    }
}

TEST_F(PortalHotKeysTest, ACancelledBindRefusesEveryComboAndIsLogged) {
    testing::LogCapture log;
    Rig rig({.bindResponse = 1});
    std::vector<std::uint32_t> refused;
    rig.keys->installRefusals([&](std::uint32_t id) { refused.push_back(id); });
    ASSERT_TRUE(rig.ready());
    ASSERT_TRUE(spinUntil([&] { return !refused.empty(); }));
    EXPECT_EQ(refused, (std::vector<std::uint32_t>{1, 2}));
    EXPECT_NE(log.text().find("shortcuts: the portal did not bind the shortcuts (1)"), std::string::npos);
}

}  // namespace
}  // namespace vantrelle
