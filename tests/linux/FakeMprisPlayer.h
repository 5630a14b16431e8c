#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QDBusObjectPath>
#include <QObject>
#include <QStringList>
#include <QVariantMap>

namespace vantrelle::testing {

// A minimal MPRIS player for what mpv can't show: an artwork URL, several players at once, Spotify.
// It lives on its own connection to the test's bus and owns "org.mpris.MediaPlayer2.<suffix>".
class FakeMprisPlayer : public QObject {
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "org.mpris.MediaPlayer2.Player")
    Q_PROPERTY(QString PlaybackStatus READ playbackStatus)
    Q_PROPERTY(QVariantMap Metadata READ metadata)

public:
    FakeMprisPlayer(const QString& address, const QString& suffix)
        : m_bus(QDBusConnection::connectToBus(address, QStringLiteral("fake-") + suffix)),
          m_name(QStringLiteral("org.mpris.MediaPlayer2.") + suffix) {}
    ~FakeMprisPlayer() override { quit(); }

    bool start() {
        return m_bus.registerObject(QStringLiteral("/org/mpris/MediaPlayer2"), this,
                                    QDBusConnection::ExportAllProperties | QDBusConnection::ExportAllSlots) &&
               m_bus.registerService(m_name);
    }
    void quit() {
        if (!m_bus.isConnected()) return;
        m_bus.unregisterService(m_name);
        m_bus.unregisterObject(QStringLiteral("/org/mpris/MediaPlayer2"));
        QDBusConnection::disconnectFromBus(m_bus.name());
    }

    void setTrack(const QString& title, const QString& trackId, qlonglong lengthUs,
                  const QString& artUrl = {}) {
        m_metadata = {{QStringLiteral("xesam:title"), title},
                      {QStringLiteral("xesam:artist"), QStringList{QStringLiteral("Fake Artist")}},
                      {QStringLiteral("mpris:trackid"), QVariant::fromValue(QDBusObjectPath(trackId))},
                      {QStringLiteral("mpris:length"), lengthUs}};
        if (!artUrl.isEmpty()) m_metadata.insert(QStringLiteral("mpris:artUrl"), artUrl);
        changed(QStringLiteral("Metadata"), m_metadata);
    }
    void setStatus(const QString& status) {
        m_status = status;
        changed(QStringLiteral("PlaybackStatus"), status);
    }

    [[nodiscard]] QString playbackStatus() const { return m_status; }
    [[nodiscard]] QVariantMap metadata() const { return m_metadata; }
    [[nodiscard]] const QStringList& calls() const { return m_calls; }

public Q_SLOTS:
    void SetPosition(const QDBusObjectPath& trackId, qlonglong position) {
        m_calls << QStringLiteral("SetPosition ") + trackId.path() + QLatin1Char(' ') +
                       QString::number(position);
    }

private:
    void changed(const QString& property, const QVariant& value) {
        auto signal = QDBusMessage::createSignal(QStringLiteral("/org/mpris/MediaPlayer2"),
                                                 QStringLiteral("org.freedesktop.DBus.Properties"),
                                                 QStringLiteral("PropertiesChanged"));
        signal << QStringLiteral("org.mpris.MediaPlayer2.Player") << QVariantMap{{property, value}}
               << QStringList();
        m_bus.send(signal);
    }

    QDBusConnection m_bus;
    QString m_name;
    QString m_status = QStringLiteral("Stopped");
    QVariantMap m_metadata;
    QStringList m_calls;
};

}  // namespace vantrelle::testing
