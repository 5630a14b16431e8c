#pragma once

#include <QObject>
#include <QString>
#include <QtDBus/QDBusConnection>
#include <map>
#include <optional>
#include <string>

#include "platform/DesktopNotifications.h"

namespace vantrelle {

// Notifications through org.freedesktop.Notifications on the session bus. Every call is asynchronous:
// a bus without the service answers with an error later, never blocks. The service's numeric ids are
// kept per tag, so "remove" closes the one delivered under that tag.
class DBusDesktopNotifications final : public QObject, public DesktopNotifications {
    Q_OBJECT
public:
    explicit DBusDesktopNotifications(QDBusConnection bus = QDBusConnection::sessionBus(),
                                      QString appName = QStringLiteral("Vantrelle"));

    void authorize(std::function<void(bool granted, const std::string& error)> answer) override;
    void post(const DesktopNotification& notification,
              std::function<void(const std::string& error)> done) override;
    void remove(std::string_view tag) override;
    void setReplyHandler(std::function<void(const DesktopNotificationReply&)> handler) override;

private Q_SLOTS:
    void onActionInvoked(uint id, const QString& action);
    void onClosed(uint id, uint reason);

private:
    struct Delivered {
        std::string tag;
        std::map<std::string, std::string> userInfo;
    };
    [[nodiscard]] std::optional<uint> idOf(std::string_view tag) const;
    void closeById(uint id);

    QDBusConnection m_bus;
    QString m_appName;
    std::map<uint, Delivered> m_delivered;
    // Posts on the way per tag, and how many of them were taken down before their id arrived.
    std::map<std::string, int, std::less<>> m_pendingPosts;
    std::map<std::string, int, std::less<>> m_closeOnArrival;
    std::function<void(const DesktopNotificationReply&)> m_handler;
};

}  // namespace vantrelle
