#include "shortcuts/PortalHotKeys.h"

#include <QPointer>
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

// Portals type session_handle as a string or as an object path; a path doesn't convert to text.
QString sessionHandle(const QVariant& value) {
    if (value.metaType() == QMetaType::fromType<QDBusObjectPath>())
        return value.value<QDBusObjectPath>().path();
    return value.toString();
}

}  // namespace

// Listens for the one Response of a Request object, then lets go of its match rule.
class PortalRequest final : public QObject {
    Q_OBJECT
public:
    using Done = std::function<void(uint, const QVariantMap&)>;
    PortalRequest(QDBusConnection bus, QString path, Done done, QObject* parent)
        : QObject(parent), m_bus(std::move(bus)), m_path(std::move(path)), m_done(std::move(done)) {
        m_bus.connect(kService, m_path, kRequest, kResponse, this, SLOT(onResponse(uint, QVariantMap)));
    }
    ~PortalRequest() override {
        m_bus.disconnect(kService, m_path, kRequest, kResponse, this, SLOT(onResponse(uint, QVariantMap)));
    }
    PortalRequest(const PortalRequest&) = delete;
    PortalRequest& operator=(const PortalRequest&) = delete;

private Q_SLOTS:
    void onResponse(uint response, const QVariantMap& results) {
        if (!m_done) return;
        const Done done = std::move(m_done);
        m_done = nullptr;
        deleteLater();
        done(response, results);
    }

private:
    inline static const QString kRequest = QStringLiteral("org.freedesktop.portal.Request");
    inline static const QString kResponse = QStringLiteral("Response");
    QDBusConnection m_bus;
    QString m_path;
    Done m_done;
};

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
    // Qt finds a slot's argument types by name, and knows a type's name only once it has been used.
    qRegisterMetaType<QDBusObjectPath>();
    qDBusRegisterMetaType<PortalShortcut>();
    qDBusRegisterMetaType<QList<PortalShortcut>>();
}

void PortalHotKeys::install(Handler handler) {
    m_handler = std::move(handler);
    if (!m_bus.connect(kService, kPath, kInterface, QStringLiteral("Activated"), this,
                       SLOT(onActivated(QDBusObjectPath, QString, qulonglong, QVariantMap))))
        DebugLog::write("shortcuts: can't listen to the portal's Activated signal");
}

void PortalHotKeys::installRefusals(Handler refused) {
    m_refused = std::move(refused);
}

void PortalHotKeys::refuseAll() {
    if (!m_refused) return;
    std::vector<std::uint32_t> ids;
    for (const auto& [id, trigger] : m_triggers) ids.push_back(id);
    for (std::uint32_t id : ids) m_refused(id);  // the handler may unregister
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
    closeSession(m_session);
    m_session.clear();
    const int generation = ++m_generation;
    if (m_triggers.empty()) return;
    request(QStringLiteral("CreateSession"), {}, {{QStringLiteral("session_handle_token"), nextToken()}},
            [this, generation](uint response, const QVariantMap& results) {
                const QString session = sessionHandle(results.value(QStringLiteral("session_handle")));
                if (generation != m_generation) {
                    closeSession(session);  // the list changed while the portal was answering
                    return;
                }
                if (response != 0 || session.isEmpty()) {
                    DebugLog::write([&] {
                        return "shortcuts: the portal refused a session (" + std::to_string(response) + ")";
                    });
                    refuseAll();
                    return;
                }
                m_session = session;
                bindShortcuts(generation);
            });
}

void PortalHotKeys::closeSession(const QString& session) {
    if (session.isEmpty()) return;
    m_bus.call(
        QDBusMessage::createMethodCall(kService, session, QStringLiteral("org.freedesktop.portal.Session"),
                                       QStringLiteral("Close")),
        QDBus::NoBlock);
}

void PortalHotKeys::bindShortcuts(int generation) {
    QList<PortalShortcut> shortcuts;
    for (const auto& [id, trigger] : m_triggers) {
        shortcuts.push_back({kIdPrefix + QString::number(id),
                             {{QStringLiteral("description"), QStringLiteral("Vantrelle ") + trigger},
                              {QStringLiteral("preferred_trigger"), trigger}}});
    }
    request(QStringLiteral("BindShortcuts"),
            {QVariant::fromValue(QDBusObjectPath(m_session)), QVariant::fromValue(shortcuts), QString()}, {},
            [this, generation](uint response, const QVariantMap&) {
                if (generation != m_generation) return;
                if (response != 0) {
                    DebugLog::write([&] {
                        return "shortcuts: the portal did not bind the shortcuts (" +
                               std::to_string(response) + ")";
                    });
                    refuseAll();
                } else {
                    DebugLog::write("shortcuts: the portal bound the shortcuts");
                }
            });
}

void PortalHotKeys::request(const QString& method, QVariantList arguments, QVariantMap options,
                            Response done) {
    // The answer comes as a Response on a Request object whose path the token decides; listen there
    // before asking, so a quick answer isn't missed.
    const QString token = nextToken();
    options[QStringLiteral("handle_token")] = token;
    QString sender = m_bus.baseService().mid(1);
    sender.replace(QLatin1Char('.'), QLatin1Char('_'));
    QPointer<PortalRequest> pending = new PortalRequest(
        m_bus, QStringLiteral("/org/freedesktop/portal/desktop/request/%1/%2").arg(sender, token),
        std::move(done), this);
    arguments << options;
    auto call = QDBusMessage::createMethodCall(kService, kPath, kInterface, method);
    call.setArguments(arguments);
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(call), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [watcher, method, pending] {
        watcher->deleteLater();
        if (watcher->isError()) {
            if (pending) pending->deleteLater();  // no Response will come
            DebugLog::write([&] {
                return "shortcuts: the portal's " + method.toStdString() + " failed (" +
                       watcher->error().message().toStdString() + ")";
            });
        }
    });
}

void PortalHotKeys::onActivated(const QDBusObjectPath& session, const QString& shortcutId, qulonglong,
                                const QVariantMap&) {
    if (m_session.isEmpty() || session.path() != m_session || !shortcutId.startsWith(kIdPrefix) || !m_handler)
        return;
    bool ok = false;
    const uint id = shortcutId.mid(kIdPrefix.size()).toUInt(&ok);
    // Only ids we still hold: one dropped since the last bind may still be bound for a moment.
    if (ok && m_triggers.count(id) != 0) m_handler(id);
}

}  // namespace vantrelle

#include "PortalHotKeys.moc"
