#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusObjectPath>
#include <functional>
#include <map>
#include <memory>

#include "platform/HotKeys.h"

namespace vantrelle {

// Global shortcuts through the desktop's org.freedesktop.portal.GlobalShortcuts, where it runs (Wayland
// desktops, where no client may grab keys). The portal binds a whole list per session and may ask
// the user first, so registering only queues: the list is bound on the next turn of the event loop in
// a fresh session, and a refusal arrives later and is logged. A press arrives as the portal's
// Activated signal.
class PortalHotKeys final : public QObject, public HotKeys {
    Q_OBJECT
public:
    // The portal on `bus` if it offers global shortcuts; null otherwise. Asks the bus once, briefly.
    static std::unique_ptr<PortalHotKeys> probe(const QDBusConnection& bus);

    void install(Handler handler) override;
    void installRefusals(Handler refused) override;
    int registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override;
    void unregisterHotKey(std::uint32_t id) override;

private Q_SLOTS:
    void onActivated(const QDBusObjectPath& session, const QString& shortcutId, qulonglong timestamp,
                     const QVariantMap& options);

private:
    using Response = std::function<void(uint response, const QVariantMap& results)>;

    explicit PortalHotKeys(QDBusConnection bus);
    void scheduleBind();
    void bind();
    void bindShortcuts(int generation);
    void closeSession(const QString& session);
    // Tells the refusal handler of every id in the list the portal just refused.
    void refuseAll();
    // Calls a portal method that answers through the Request object of a fresh token; its Response
    // goes to `done`, once.
    void request(const QString& method, QVariantList arguments, QVariantMap options, Response done);
    QString nextToken() { return QStringLiteral("vantrelle%1").arg(++m_tokens); }

    QDBusConnection m_bus;
    Handler m_handler;
    Handler m_refused;
    std::map<std::uint32_t, QString> m_triggers;  // id -> "CTRL+ALT+k"
    QString m_session;
    // Every bind starts a new generation; answers to an older one are stale and only cleaned up.
    int m_generation = 0;
    bool m_bindQueued = false;
    int m_tokens = 0;
};

}  // namespace vantrelle
