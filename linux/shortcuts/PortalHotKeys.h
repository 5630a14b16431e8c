#pragma once

#include <QObject>
#include <QString>
#include <QVariantMap>
#include <QtDBus/QDBusConnection>
#include <QtDBus/QDBusObjectPath>
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
    int registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) override;
    void unregisterHotKey(std::uint32_t id) override;

private Q_SLOTS:
    void onActivated(const QDBusObjectPath& session, const QString& shortcutId, qulonglong timestamp,
                     const QVariantMap& options);
    void onSessionCreated(uint response, const QVariantMap& results);
    void onBound(uint response, const QVariantMap& results);

private:
    explicit PortalHotKeys(QDBusConnection bus);
    void scheduleBind();
    void bind();
    void bindShortcuts();
    // Calls a portal method that answers through the Request object of `token`; its Response goes to
    // `slot`.
    void request(const QString& method, const QVariantList& arguments, const QString& token,
                 const char* slot);

    QDBusConnection m_bus;
    Handler m_handler;
    std::map<std::uint32_t, QString> m_triggers;  // id -> "CTRL+ALT+k"
    QString m_session;
    bool m_bindQueued = false;
    int m_tokens = 0;
};

}  // namespace vantrelle
