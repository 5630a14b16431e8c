#include "shortcuts/PortalHotKeys.h"

#include <QTimer>
#include <QtDBus/QDBusArgument>
#include <QtDBus/QDBusMessage>
#include <QtDBus/QDBusMetaType>
#include <QtDBus/QDBusPendingCallWatcher>

#include "shortcuts/KeyTable.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

const QString kService = QStringLiteral("org.freedesktop.portal.Desktop");
const QString kPath = QStringLiteral("/org/freedesktop/portal/desktop");
const QString kInterface = QStringLiteral("org.freedesktop.portal.GlobalShortcuts");
const QString kIdPrefix = QStringLiteral("vantrelle-");

// One entry of BindShortcuts' list: (id, {description, preferred_trigger}).
struct PortalShortcut {
    QString id;
    QVariantMap properties;
};

}  // namespace

}  // namespace vantrelle

Q_DECLARE_METATYPE(vantrelle::PortalShortcut)

namespace vantrelle {

namespace {

QDBusArgument& operator<<(QDBusArgument& argument, const PortalShortcut& shortcut) {
    argument.beginStructure();
    argument << shortcut.id << shortcut.properties;
    argument.endStructure();
    return argument;
}

const QDBusArgument& operator>>(const QDBusArgument& argument, PortalShortcut& shortcut) {
    argument.beginStructure();
    argument >> shortcut.id >> shortcut.properties;
    argument.endStructure();
    return argument;
}

}  // namespace

std::unique_ptr<PortalHotKeys> PortalHotKeys::probe(const QDBusConnection& bus) {
    if (!bus.isConnected()) return nullptr;
    auto get = QDBusMessage::createMethodCall(
        kService, kPath, QStringLiteral("org.freedesktop.DBus.Properties"), QStringLiteral("Get"));
    get << kInterface << QStringLiteral("version");
    const QDBusMessage reply = QDBusConnection(bus).call(get, QDBus::Block, 500);
    if (reply.type() != QDBusMessage::ReplyMessage) return nullptr;
    DebugLog::write("shortcuts: using the desktop's global shortcuts portal");
    return std::unique_ptr<PortalHotKeys>(new PortalHotKeys(bus));
}

PortalHotKeys::PortalHotKeys(QDBusConnection bus) : m_bus(std::move(bus)) {
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
}

void PortalHotKeys::install(Handler handler) {
    m_handler = std::move(handler);
    m_bus.connect(kService, kPath, kInterface, QStringLiteral("Activated"), this,
                  SLOT(onActivated(QDBusObjectPath, QString, qulonglong, QVariantMap)));
}

int PortalHotKeys::registerHotKey(std::uint32_t id, std::uint32_t keyCode, std::uint32_t modifiers) {
    const std::string trigger = xdgTrigger(keyCode, modifiers);
    if (trigger.empty()) return -2;
    m_triggers[id] = QString::fromStdString(trigger);
    scheduleBind();
    return 0;
}

void PortalHotKeys::unregisterHotKey(std::uint32_t id) {
    if (m_triggers.erase(id) != 0) scheduleBind();
}

void PortalHotKeys::scheduleBind() {
    if (m_bindQueued) return;
    m_bindQueued = true;
    QTimer::singleShot(0, this, [this] {
        m_bindQueued = false;
        bind();
    });
}

void PortalHotKeys::bind() {
    // A session binds its list once: a new list needs a new session.
    if (!m_session.isEmpty()) {
        m_bus.call(QDBusMessage::createMethodCall(kService, m_session,
                                                  QStringLiteral("org.freedesktop.portal.Session"),
                                                  QStringLiteral("Close")),
                   QDBus::NoBlock);
        m_session.clear();
    }
    if (m_triggers.empty()) return;
    const QString token = QStringLiteral("vantrelle%1").arg(++m_tokens);
    const QVariantMap options{
        {QStringLiteral("handle_token"), token},
        {QStringLiteral("session_handle_token"), QStringLiteral("vantrelle%1").arg(++m_tokens)}};
    request(QStringLiteral("CreateSession"), {options}, token, SLOT(onSessionCreated(uint, QVariantMap)));
}

void PortalHotKeys::onSessionCreated(uint response, const QVariantMap& results) {
    if (response != 0) {
        DebugLog::write(
            [&] { return "shortcuts: the portal refused a session (" + std::to_string(response) + ")"; });
        return;
    }
    m_session = results.value(QStringLiteral("session_handle")).toString();
    bindShortcuts();
}

void PortalHotKeys::bindShortcuts() {
    QList<PortalShortcut> shortcuts;
    for (const auto& [id, trigger] : m_triggers) {
        shortcuts.push_back({kIdPrefix + QString::number(id),
                             {{QStringLiteral("description"), QStringLiteral("Vantrelle ") + trigger},
                              {QStringLiteral("preferred_trigger"), trigger}}});
    }
    const QString token = QStringLiteral("vantrelle%1").arg(++m_tokens);
    const QVariantMap options{{QStringLiteral("handle_token"), token}};
    request(
        QStringLiteral("BindShortcuts"),
        {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), QString(), options},
        token, SLOT(onBound(uint, QVariantMap)));
}

void PortalHotKeys::onBound(uint response, const QVariantMap&) {
    if (response != 0)
        DebugLog::write([&] {
            return "shortcuts: the portal did not bind the shortcuts (" + std::to_string(response) + ")";
        });
    else
        DebugLog::write("shortcuts: the portal bound the shortcuts");
}

void PortalHotKeys::request(const QString& method, const QVariantList& arguments, const QString& token,
                            const char* slot) {
    // The answer comes as a Response on a Request object whose path the token decides; listen there
    // before asking, so a quick answer isn't missed.
    QString sender = m_bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    const QString requestPath =
        QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token);
    m_bus.connect(kService, requestPath, QStringLiteral("org.freedesktop.portal.Request"),
                  QStringLiteral("Response"), this, slot);
    auto call = QDBusMessage::createMethodCall(kService, kPath, kInterface, method);
    call.setArguments(arguments);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, method] {
        watcher->deleteLater();
        if (watcher->isError()) {
            DebugLog::write([&] {
                return "shortcuts: the portal's " + method.toStdString() + " failed (" +
                       watcher->error().message().toStdString() + ")";
            });
        }
    });
}

void PortalHotKeys::onActivated(const QDBusObjectPath& session, const QString& shortcutId, qulonglong,
                                const QVariantMap&) {
    if (session.path() != m_session || !shortcutId.startsWith(kIdPrefix) || !m_handler) return;
    bool ok = false;
    const uint id = shortcutId.mid(kIdPrefix.size()).toUInt(&ok);
    if (ok) m_handler(id);
}

}  // namespace vantrelle
