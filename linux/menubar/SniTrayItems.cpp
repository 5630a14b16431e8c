#include "menubar/SniTrayItems.h"

#include <QDBusConnectionInterface>
#include <QDBusMessage>
#include <QDBusVariant>

namespace vantrelle {

namespace {

const QString kWatcherService = QStringLiteral("org.kde.StatusNotifierWatcher");
const QString kItemInterface = QStringLiteral("org.kde.StatusNotifierItem");
const QString kProperties = QStringLiteral("org.freedesktop.DBus.Properties");

}  // namespace

std::pair<QString, QString> SniTrayItems::splitAddress(const QString& address) {
    const qsizetype slash = address.indexOf(QLatin1Char('/'));
    if (slash <= 0) return {address, QStringLiteral("/StatusNotifierItem")};
    return {address.left(slash), address.mid(slash)};
}

bool SniTrayItems::hasWatcher() {
    auto* interface = m_bus.interface();
    return interface && interface->isServiceRegistered(kWatcherService).value();
}

std::vector<TrayItem> SniTrayItems::items() {
    auto listCall = QDBusMessage::createMethodCall(kWatcherService, QStringLiteral("/StatusNotifierWatcher"),
                                                   kProperties, QStringLiteral("Get"));
    listCall << kWatcherService << QStringLiteral("RegisteredStatusNotifierItems");
    const QDBusMessage listed = m_bus.call(listCall, QDBus::Block, kCallTimeoutMs);
    if (listed.type() != QDBusMessage::ReplyMessage || listed.arguments().isEmpty()) return {};
    const QStringList addresses = listed.arguments().first().value<QDBusVariant>().variant().toStringList();

    std::vector<TrayItem> items;
    for (const QString& address : addresses) {
        const auto [service, path] = splitAddress(address);
        if (service.isEmpty() || !path.startsWith(QLatin1Char('/'))) continue;
        auto getAll = QDBusMessage::createMethodCall(service, path, kProperties, QStringLiteral("GetAll"));
        getAll << kItemInterface;
        const QDBusMessage reply = m_bus.call(getAll, QDBus::Block, kCallTimeoutMs);
        if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) continue;
        const auto properties = qdbus_cast<QVariantMap>(reply.arguments().first());
        TrayItem item;
        item.address = address.toStdString();
        item.id = properties.value(QStringLiteral("Id")).toString().toStdString();
        item.title = properties.value(QStringLiteral("Title")).toString().toStdString();
        item.iconName = properties.value(QStringLiteral("IconName")).toString().toStdString();
        item.iconThemePath = properties.value(QStringLiteral("IconThemePath")).toString().toStdString();
        item.iconPixmaps = pixmapsFrom(properties.value(QStringLiteral("IconPixmap")));
        if (auto* interface = m_bus.interface()) {
            const auto pid = interface->servicePid(service);
            if (pid.isValid()) item.pid = static_cast<std::int32_t>(pid.value());
        }
        items.push_back(std::move(item));
    }
    return items;
}

std::vector<TrayPixmap> SniTrayItems::pixmapsFrom(const QVariant& value) {
    if (!value.canConvert<QDBusArgument>()) return {};
    const auto argument = value.value<QDBusArgument>();
    if (argument.currentSignature() != QLatin1String("a(iiay)")) return {};
    std::vector<TrayPixmap> pixmaps;
    argument.beginArray();
    while (!argument.atEnd()) {
        TrayPixmap pixmap;
        QByteArray bytes;
        argument.beginStructure();
        argument >> pixmap.width >> pixmap.height >> bytes;
        argument.endStructure();
        pixmap.argb.assign(bytes.begin(), bytes.end());
        pixmaps.push_back(std::move(pixmap));
    }
    argument.endArray();
    return pixmaps;
}

void SniTrayItems::watchIcons(std::function<void()> onNewIcon) {
    m_relay.onNewIcon = std::move(onNewIcon);
    if (m_subscribed || !m_relay.onNewIcon) return;
    // Any sender and path: items live wherever their programs put them.
    m_subscribed = m_bus.connect(QString(), QString(), kItemInterface, QStringLiteral("NewIcon"), &m_relay,
                                 SLOT(newIcon()));
}

bool SniTrayItems::activate(const std::string& address, int x, int y) {
    const auto [service, path] = splitAddress(QString::fromStdString(address));
    if (service.isEmpty()) return false;
    for (const QString& method : {QStringLiteral("Activate"), QStringLiteral("ContextMenu")}) {
        auto message = QDBusMessage::createMethodCall(service, path, kItemInterface, method);
        message << x << y;
        if (m_bus.call(message, QDBus::Block, kCallTimeoutMs).type() == QDBusMessage::ReplyMessage)
            return true;
    }
    return false;
}

}  // namespace vantrelle
