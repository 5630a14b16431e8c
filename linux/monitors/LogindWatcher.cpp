#include "monitors/LogindWatcher.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusPendingCallWatcher>
#include <QDBusPendingReply>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

const QString kService = QStringLiteral("org.freedesktop.login1");
const QString kManagerPath = QStringLiteral("/org/freedesktop/login1");
const QString kManager = QStringLiteral("org.freedesktop.login1.Manager");
const QString kSession = QStringLiteral("org.freedesktop.login1.Session");

}  // namespace

LogindWatcher::LogindWatcher(QDBusConnection bus, pid_t pid, const QString& fallbackSession,
                             Handlers handlers)
    : m_bus(std::move(bus)), m_handlers(std::move(handlers)) {
    if (!m_bus.isConnected()) return;
    m_bus.connect(kService, kManagerPath, kManager, QStringLiteral("PrepareForSleep"), this,
                  SLOT(prepareForSleep(bool)));
    ask(QStringLiteral("GetSessionByPID"), QVariant::fromValue(static_cast<uint>(pid)),
        [this, fallbackSession](const QString& path) {
            if (!path.isEmpty() || fallbackSession.isEmpty()) return watchSession(path);
            ask(QStringLiteral("GetSession"), fallbackSession,
                [this](const QString& found) { watchSession(found); });
        });
}

void LogindWatcher::ask(const QString& method, const QVariant& argument,
                        std::function<void(const QString&)> then) {
    QDBusMessage call = QDBusMessage::createMethodCall(kService, kManagerPath, kManager, method);
    call << argument;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call, 5000), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [then = std::move(then)](QDBusPendingCallWatcher* finished) {
                const QDBusPendingReply<QDBusObjectPath> reply = *finished;
                then(reply.isValid() ? reply.value().path() : QString());
                finished->deleteLater();
            });
}

void LogindWatcher::watchSession(const QString& path) {
    m_sessionPath = path;
    if (m_sessionPath.isEmpty()) {
        DebugLog::write("screentime: no logind session found, lock events come from the auto session");
        m_sessionPath = QStringLiteral("/org/freedesktop/login1/session/auto");
    }
    m_bus.connect(kService, m_sessionPath, kSession, QStringLiteral("Lock"), this, SLOT(lock()));
    m_bus.connect(kService, m_sessionPath, kSession, QStringLiteral("Unlock"), this, SLOT(unlock()));
    m_bus.connect(kService, m_sessionPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                  QStringLiteral("PropertiesChanged"), this,
                  SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
}

void LogindWatcher::prepareForSleep(bool going) {
    if (m_handlers.asleep) m_handlers.asleep(going);
}

void LogindWatcher::lock() {
    if (m_handlers.locked) m_handlers.locked(true);
}

void LogindWatcher::unlock() {
    if (m_handlers.locked) m_handlers.locked(false);
}

void LogindWatcher::propertiesChanged(const QString& interface, const QVariantMap& changed,
                                      const QStringList&) {
    const auto hint = changed.find(QStringLiteral("LockedHint"));
    if (interface == kSession && hint != changed.end() && m_handlers.locked)
        m_handlers.locked(hint->toBool());
}

}  // namespace vantrelle
