#pragma once

#include <sys/types.h>

#include <QDBusConnection>
#include <QObject>
#include <QString>
#include <QVariantMap>
#include <functional>

namespace vantrelle {

// Lock, unlock, sleep and wake from systemd-logind on the system bus: the manager's PrepareForSleep
// and our session's Lock and Unlock signals and LockedHint property. Where logind isn't there the
// handlers are simply never called.
class LogindWatcher final : public QObject {
    Q_OBJECT

public:
    struct Handlers {
        std::function<void(bool locked)> locked;
        std::function<void(bool asleep)> asleep;
    };

    // `pid` finds our session through the manager, asked without blocking; `fallbackSession`
    // (XDG_SESSION_ID) where that fails.
    LogindWatcher(QDBusConnection bus, pid_t pid, const QString& fallbackSession, Handlers handlers);
    // Empty until the manager answered.
    [[nodiscard]] const QString& sessionPath() const { return m_sessionPath; }

private Q_SLOTS:
    void prepareForSleep(bool going);
    void lock();
    void unlock();
    void propertiesChanged(const QString& interface, const QVariantMap& changed,
                           const QStringList& invalidated);

private:
    // Asks the manager `method`; `then` gets the session's path, or "" when it had none.
    void ask(const QString& method, const QVariant& argument, std::function<void(const QString&)> then);
    void watchSession(const QString& path);

    QDBusConnection m_bus;
    Handlers m_handlers;
    QString m_sessionPath;
};

}  // namespace vantrelle
