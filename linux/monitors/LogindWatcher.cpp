#include "monitors/LogindWatcher.h"

#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QDBusReply>

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
    m_sessionPath = findSession(pid, fallbackSession);
    m_bus.connect(kService, m_sessionPath, kSession, QStringLiteral("Lock"), this, SLOT(lock()));
    m_bus.connect(kService, m_sessionPath, kSession, QStringLiteral("Unlock"), this, SLOT(unlock()));
    m_bus.connect(kService, m_sessionPath, QStringLiteral("org.freedesktop.DBus.Properties"),
                  QStringLiteral("PropertiesChanged"), this,
                  SLOT(propertiesChanged(QString, QVariantMap, QStringList)));
}

QString LogindWatcher::findSession(pid_t pid, const QString& fallbackSession) {
    const auto ask = [this](const QString& method, const QVariant& argument) {
        QDBusMessage call = QDBusMessage::createMethodCall(kService, kManagerPath, kManager, method);
        call << argument;
        const QDBusReply<QDBusObjectPath> reply = m_bus.call(call, QDBus::Block, 2000);
        return reply.isValid() ? reply.value().path() : QString();
    };
    QString path = ask(QStringLiteral("GetSessionByPID"), QVariant::fromValue(static_cast<uint>(pid)));
    if (path.isEmpty() && !fallbackSession.isEmpty())
        path = ask(QStringLiteral("GetSession"), fallbackSession);
    if (path.isEmpty()) {
        DebugLog::write("screentime: no logind session found, lock events come from the auto session");
        path = QStringLiteral("/org/freedesktop/login1/session/auto");
    }
    return path;
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
