#pragma once

#include <QColor>
#include <QDBusArgument>
#include <QDBusConnection>
#include <QDBusContext>
#include <QDBusMetaType>
#include <QMutex>
#include <QObject>
#include <QStringList>
#include <QtEndian>

namespace vantrelle::testing {

// One size of an item's picture as it goes over the bus: (iiay).
struct FakePixmap {
    int width = 0;
    int height = 0;
    QByteArray argb;
};
using FakePixmaps = QList<FakePixmap>;

inline QDBusArgument& operator<<(QDBusArgument& out, const FakePixmap& pixmap) {
    out.beginStructure();
    out << pixmap.width << pixmap.height << pixmap.argb;
    out.endStructure();
    return out;
}
inline const QDBusArgument& operator>>(const QDBusArgument& in, FakePixmap& pixmap) {
    in.beginStructure();
    in >> pixmap.width >> pixmap.height >> pixmap.argb;
    in.endStructure();
    return in;
}

// A square of one colour, in network byte order.
inline FakePixmap solidPixmap(int side, QRgb colour) {
    const quint32 argb = qToBigEndian<quint32>(colour);
    return {side, side, QByteArray(reinterpret_cast<const char*>(&argb), 4).repeated(side * side)};
}

// A tray watcher written for the test: it lists whatever addresses the test gives it.
class FakeStatusNotifierWatcher : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierWatcher")
    Q_PROPERTY(QStringList RegisteredStatusNotifierItems READ items)

public:
    explicit FakeStatusNotifierWatcher(QStringList items) : m_items(std::move(items)) {}
    [[nodiscard]] QStringList items() const { return m_items; }

private:
    QStringList m_items;
};

// A tray item that records how it was opened; one that refuses Activate sends a D-Bus error, as
// items without a main action do.
class FakeStatusNotifierItem : public QObject, protected QDBusContext {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.kde.StatusNotifierItem")
    Q_PROPERTY(QString Title READ title)
    Q_PROPERTY(QString Id READ id)
    Q_PROPERTY(QString IconName READ iconName)
    Q_PROPERTY(vantrelle::testing::FakePixmaps IconPixmap READ iconPixmap)

public:
    FakeStatusNotifierItem(QString title, QString id, bool activates)
        : m_title(std::move(title)), m_id(std::move(id)), m_activates(activates) {}
    [[nodiscard]] QString title() const { return m_title; }
    [[nodiscard]] QString id() const { return m_id; }
    [[nodiscard]] QString iconName() const {
        QMutexLocker lock(&m_mutex);
        return m_iconName;
    }
    [[nodiscard]] FakePixmaps iconPixmap() const {
        QMutexLocker lock(&m_mutex);
        return m_pixmaps;
    }
    void setPicture(QString iconName, FakePixmaps pixmaps) {
        QMutexLocker lock(&m_mutex);
        m_iconName = std::move(iconName);
        m_pixmaps = std::move(pixmaps);
    }
    [[nodiscard]] QStringList calls() const {
        QMutexLocker lock(&m_mutex);
        return m_calls;
    }

public Q_SLOTS:
    void Activate(int x, int y) {
        if (!m_activates) {
            sendErrorReply(QDBusError::NotSupported, QStringLiteral("no main action"));
            return;
        }
        record(QStringLiteral("Activate"), x, y);
    }
    void ContextMenu(int x, int y) { record(QStringLiteral("ContextMenu"), x, y); }

private:
    void record(const QString& method, int x, int y) {
        QMutexLocker lock(&m_mutex);
        m_calls << method + QLatin1Char(' ') + QString::number(x) + QLatin1Char(',') + QString::number(y);
    }

    QString m_title;
    QString m_id;
    bool m_activates;
    QString m_iconName;
    FakePixmaps m_pixmaps;
    mutable QMutex m_mutex;
    QStringList m_calls;
};

}  // namespace vantrelle::testing

Q_DECLARE_METATYPE(vantrelle::testing::FakePixmap)
