#include "notifications/DBusDesktopNotifications.h"

#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusPendingCallWatcher>
#include <QtDBus/QDBusPendingReply>
#include <QtDBus/QDBusVariant>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

const QString kService = QStringLiteral("org.freedesktop.Notifications");
const QString kPath = QStringLiteral("/org/freedesktop/Notifications");
const QString kInterface = QStringLiteral("org.freedesktop.Notifications");
constexpr int kServerDefaultTimeout = -1;

QString qs(const std::string& text) {
    return QString::fromStdString(text);
}

}  // namespace

DBusDesktopNotifications::DBusDesktopNotifications(QDBusConnection bus, QString appName)
    : m_bus(std::move(bus)), m_appName(std::move(appName)) {
    m_bus.connect(kService, kPath, kInterface, QStringLiteral("ActionInvoked"), this,
                  SLOT(onActionInvoked(uint, QString)));
    m_bus.connect(kService, kPath, kInterface, QStringLiteral("NotificationClosed"), this,
                  SLOT(onClosed(uint, uint)));
}

void DBusDesktopNotifications::authorize(std::function<void(bool, const std::string&)> answer) {
    // The desktop has no permission to ask for: a service that answers is a yes.
    auto call =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("GetServerInformation"));
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [answer = std::move(answer)](QDBusPendingCallWatcher* w) {
                w->deleteLater();
                if (w->isError()) {
                    answer(false, w->error().name().toStdString());
                } else {
                    answer(true, {});
                }
            });
}

void DBusDesktopNotifications::post(const DesktopNotification& notification,
                                    std::function<void(const std::string&)> done) {
    QStringList actions;
    // "default" makes a click on the banner itself come back as a reply.
    actions << QString::fromUtf8(kDefaultAction.data(), static_cast<qsizetype>(kDefaultAction.size()))
            << QStringLiteral("Open");
    for (const auto& [id, title] : notification.actions) actions << qs(id) << qs(title);
    auto call = QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("Notify"));
    call << m_appName << uint(0) << QString() << qs(notification.title) << qs(notification.body) << actions
         << QVariantMap{{QStringLiteral("suppress-sound"), true}} << kServerDefaultTimeout;
    ++m_pendingPosts[notification.tag];
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [this, tag = notification.tag, userInfo = notification.userInfo,
             done = std::move(done)](QDBusPendingCallWatcher* w) {
                w->deleteLater();
                if (auto it = m_pendingPosts.find(tag); it != m_pendingPosts.end() && --it->second == 0)
                    m_pendingPosts.erase(it);
                // Taken down while on the way: it goes as soon as it is there.
                bool takenDown = false;
                if (auto close = m_closeOnArrival.find(tag); close != m_closeOnArrival.end()) {
                    takenDown = true;
                    if (--close->second <= 0) m_closeOnArrival.erase(close);
                }
                QDBusPendingReply<uint> reply = *w;
                if (reply.isError()) {
                    done(reply.error().name().toStdString() + ": " + reply.error().message().toStdString());
                    return;
                }
                if (takenDown) {
                    closeById(reply.value());
                } else {
                    m_delivered[reply.value()] = Delivered{tag, userInfo};
                }
                done({});
            });
}

std::optional<uint> DBusDesktopNotifications::idOf(std::string_view tag) const {
    for (const auto& [id, delivered] : m_delivered) {
        if (delivered.tag == tag) return id;
    }
    return std::nullopt;
}

void DBusDesktopNotifications::remove(std::string_view tag) {
    // Every post of this tag still on the way is taken down as it arrives.
    if (auto pending = m_pendingPosts.find(tag); pending != m_pendingPosts.end()) {
        m_closeOnArrival.insert_or_assign(std::string(tag), pending->second);
    }
    while (auto id = idOf(tag)) {
        m_delivered.erase(*id);
        closeById(*id);
    }
}

void DBusDesktopNotifications::closeById(uint id) {
    auto call =
        QDBusMessage::createMethodCall(kService, kPath, kInterface, QStringLiteral("CloseNotification"));
    call << id;
    m_bus.asyncCall(call);  // nothing to do with the answer: gone is gone
}

void DBusDesktopNotifications::setReplyHandler(std::function<void(const DesktopNotificationReply&)> handler) {
    m_handler = std::move(handler);
}

void DBusDesktopNotifications::onActionInvoked(uint id, const QString& action) {
    auto it = m_delivered.find(id);
    if (it == m_delivered.end()) return;  // another program's notification
    DesktopNotificationReply reply{it->second.tag, action.toStdString(), it->second.userInfo};
    DebugLog::write([&] { return "notifications: " + reply.tag + " answered " + reply.action; });
    if (m_handler) m_handler(reply);
}

void DBusDesktopNotifications::onClosed(uint id, uint) {
    m_delivered.erase(id);
}

}  // namespace vantrelle
