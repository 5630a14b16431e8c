#include "media/MprisMediaProvider.h"

#include <QDBusArgument>
#include <QDBusObjectPath>
#include <QDBusPendingCall>
#include <QDBusPendingCallWatcher>
#include <QFile>
#include <QUrl>
#include <cmath>

#include "media/MprisTrack.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

const QString kObjectPath = QStringLiteral("/org/mpris/MediaPlayer2");
const QString kRootInterface = QStringLiteral("org.mpris.MediaPlayer2");
const QString kPlayerInterface = QStringLiteral("org.mpris.MediaPlayer2.Player");
const QString kPropertiesInterface = QStringLiteral("org.freedesktop.DBus.Properties");
const QString kDaemon = QStringLiteral("org.freedesktop.DBus");
const QString kDaemonPath = QStringLiteral("/org/freedesktop/DBus");
// A player that doesn't answer holds a poll no longer than a script would.
constexpr int kCallTimeoutMs = 6000;

void logArtwork(const std::string& key, const std::optional<Artwork>& artwork) {
    DebugLog::write([&] {
        const std::string size = artwork
                                     ? std::to_string(artwork->width) + "x" + std::to_string(artwork->height)
                                     : std::string("nil");
        return "media: artwork for " + key + " -> " + size;
    });
}

QVariant firstArgument(const QDBusMessage& reply) {
    if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) return {};
    QVariant value = reply.arguments().constFirst();
    if (value.userType() == qMetaTypeId<QDBusVariant>()) value = value.value<QDBusVariant>().variant();
    return value;
}

std::optional<std::vector<std::uint8_t>> readLocalFile(const QString& path) {
    QFile file(path);
    if (!file.open(QIODevice::ReadOnly) || file.size() > MprisMediaProvider::kMaxArtworkFileBytes)
        return std::nullopt;
    const QByteArray data = file.readAll();
    return std::vector<std::uint8_t>(data.begin(), data.end());
}

}  // namespace

MprisMediaProvider::MprisMediaProvider(Dependencies dependencies)
    : m_bus(dependencies.bus),
      m_scheduler(dependencies.scheduler),
      m_http(dependencies.http),
      m_decoder(dependencies.decoder),
      m_queue(dependencies.queues.make("media")) {
    if (!m_bus.isConnected()) {
        // Without a session bus no player can be seen; the controller then simply finds none.
        DebugLog::write("media: no session bus, players can't be followed");
        return;
    }
    m_bus.connect(kDaemon, kDaemonPath, kDaemon, QStringLiteral("NameOwnerChanged"), this,
                  SLOT(onNameOwnerChanged(QString, QString, QString)));
    // Any sender: the signal comes from a player's unique name, mapped back to its well-known one.
    m_bus.connect(QString(), kObjectPath, kPropertiesInterface, QStringLiteral("PropertiesChanged"), this,
                  SLOT(onPropertiesChanged(QString, QVariantMap, QStringList, QDBusMessage)));
    listPlayers();
}

MprisMediaProvider::~MprisMediaProvider() {
    m_queue.reset();
}

void MprisMediaProvider::listPlayers() {
    auto message = QDBusMessage::createMethodCall(kDaemon, kDaemonPath, kDaemon, QStringLiteral("ListNames"));
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, kCallTimeoutMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this, [this](QDBusPendingCallWatcher* finished) {
        finished->deleteLater();
        for (const QString& name : firstArgument(finished->reply()).toStringList()) {
            if (!MprisPlayers::isPlayerName(name)) continue;
            auto ask =
                QDBusMessage::createMethodCall(kDaemon, kDaemonPath, kDaemon, QStringLiteral("GetNameOwner"));
            ask.setArguments({name});
            auto* owner = new QDBusPendingCallWatcher(m_bus.asyncCall(ask, kCallTimeoutMs), this);
            connect(owner, &QDBusPendingCallWatcher::finished, this,
                    [this, name](QDBusPendingCallWatcher* done) {
                        done->deleteLater();
                        const QString unique = firstArgument(done->reply()).toString();
                        if (!unique.isEmpty() && !m_players.has(name)) learnPlayer(name, unique);
                    });
        }
    });
}

void MprisMediaProvider::learnPlayer(const QString& name, const QString& owner) {
    m_players.appeared(name, owner);
    call(name, kPropertiesInterface, QStringLiteral("Get"), {kRootInterface, QStringLiteral("Identity")},
         [this, name](const QDBusMessage& reply) {
             m_players.setIdentity(name, firstArgument(reply).toString());
         });
    call(name, kPropertiesInterface, QStringLiteral("Get"),
         {kPlayerInterface, QStringLiteral("PlaybackStatus")}, [this, name](const QDBusMessage& reply) {
             m_players.setPlaying(name, firstArgument(reply).toString() == QStringLiteral("Playing"));
         });
    DebugLog::write([&] { return "media: player " + name.toStdString() + " appeared"; });
    stateMayHaveChanged.emit();
}

void MprisMediaProvider::onNameOwnerChanged(const QString& name, const QString&, const QString& newOwner) {
    if (!MprisPlayers::isPlayerName(name)) return;
    if (newOwner.isEmpty()) {
        if (!m_players.has(name)) return;
        m_players.vanished(name);
        m_trackIds.erase(name);
        m_positions.erase(name);
        DebugLog::write([&] { return "media: player " + name.toStdString() + " quit"; });
        playerQuit.emit(MprisPlayers::sourceOf(name));
        return;
    }
    learnPlayer(name, newOwner);
}

void MprisMediaProvider::onPropertiesChanged(const QString& interface, const QVariantMap& changed,
                                             const QStringList&, const QDBusMessage& message) {
    if (interface != kPlayerInterface) return;
    const auto name = m_players.nameForOwner(message.service());
    if (!name) return;
    if (changed.contains(QStringLiteral("PlaybackStatus"))) {
        m_players.setPlaying(
            *name, changed.value(QStringLiteral("PlaybackStatus")).toString() == QStringLiteral("Playing"));
    }
    stateMayHaveChanged.emit();
}

void MprisMediaProvider::call(const QString& name, const QString& interface, const QString& method,
                              const QVariantList& arguments, std::function<void(const QDBusMessage&)> done) {
    // Never a call to a name without an owner: the bus could start a player to answer it.
    if (!m_players.has(name)) {
        m_scheduler.post([alive = std::weak_ptr<bool>(m_alive), done = std::move(done)] {
            if (!alive.expired())
                done(QDBusMessage::createError(QStringLiteral("vantrelle.NoPlayer"), QString()));
        });
        return;
    }
    auto message = QDBusMessage::createMethodCall(name, kObjectPath, interface, method);
    message.setArguments(arguments);
    ++m_playerCalls;
    auto* watcher = new QDBusPendingCallWatcher(m_bus.asyncCall(message, kCallTimeoutMs), this);
    connect(watcher, &QDBusPendingCallWatcher::finished, this,
            [done = std::move(done)](QDBusPendingCallWatcher* finished) {
                finished->deleteLater();
                done(finished->reply());
            });
}

bool MprisMediaProvider::isRunning(MediaSource source) const {
    return m_players.chosen(source).has_value();
}

std::string MprisMediaProvider::playerName(MediaSource source) const {
    const auto name = m_players.chosen(source);
    if (!name) return std::string(rawName(source));
    const auto* player = m_players.find(*name);
    if (player && !player->identity.isEmpty()) return player->identity.toStdString();
    return name->mid(MprisPlayers::kPrefix.size()).toStdString();
}

void MprisMediaProvider::fetchState(MediaSource source,
                                    std::function<void(std::optional<NowPlayingTrack>)> done) {
    const auto name = m_players.chosen(source);
    if (!name) {
        m_scheduler.post([alive = std::weak_ptr<bool>(m_alive), done = std::move(done)] {
            if (!alive.expired()) done(std::nullopt);
        });
        return;
    }
    call(*name, kPropertiesInterface, QStringLiteral("GetAll"), {kPlayerInterface},
         [this, name = *name, done = std::move(done)](const QDBusMessage& reply) {
             if (reply.type() != QDBusMessage::ReplyMessage || reply.arguments().isEmpty()) {
                 done(std::nullopt);
                 return;
             }
             const auto properties = qdbus_cast<QVariantMap>(reply.arguments().constFirst());
             m_players.setPlaying(name, properties.value(QStringLiteral("PlaybackStatus")).toString() ==
                                            QStringLiteral("Playing"));
             auto track = trackFromMpris(name, properties);
             const auto trackId = mprisMetadata(properties).value(QStringLiteral("mpris:trackid"));
             m_trackIds[name] = trackId.userType() == qMetaTypeId<QDBusObjectPath>()
                                    ? trackId.value<QDBusObjectPath>().path()
                                    : trackId.toString();
             m_positions[name] = track ? track->position : 0;
             done(std::move(track));
         });
}

void MprisMediaProvider::command(MediaSource source, const std::string& verb, std::function<void()> done) {
    const auto name = m_players.chosen(source);
    auto finish = [done = std::move(done)](const QDBusMessage&) { done(); };
    if (!name) {
        finish(QDBusMessage());
        return;
    }
    static const std::string seekPrefix = "set player position to ";
    if (verb == "playpause") return call(*name, kPlayerInterface, QStringLiteral("PlayPause"), {}, finish);
    if (verb == "next track") return call(*name, kPlayerInterface, QStringLiteral("Next"), {}, finish);
    if (verb == "previous track")
        return call(*name, kPlayerInterface, QStringLiteral("Previous"), {}, finish);
    if (verb.starts_with(seekPrefix)) {
        const double seconds = std::strtod(verb.c_str() + seekPrefix.size(), nullptr);
        const auto microseconds = static_cast<qlonglong>(std::llround(seconds * 1e6));
        const QString trackId = m_trackIds[*name];
        if (trackId.startsWith(QLatin1Char('/'))) {
            return call(*name, kPlayerInterface, QStringLiteral("SetPosition"),
                        {QVariant::fromValue(QDBusObjectPath(trackId)), QVariant::fromValue(microseconds)},
                        finish);
        }
        // Without a track id only a relative seek is possible.
        const auto offset = microseconds - static_cast<qlonglong>(std::llround(m_positions[*name] * 1e6));
        return call(*name, kPlayerInterface, QStringLiteral("Seek"), {QVariant::fromValue(offset)}, finish);
    }
    DebugLog::write([&] { return "media: unknown command '" + verb + "'"; });
    finish(QDBusMessage());
}

void MprisMediaProvider::fetchArtwork(const NowPlayingTrack& track,
                                      std::function<void(std::optional<Artwork>)> done) {
    const std::string key = track.artworkKey;
    auto later = [this, done](std::optional<Artwork> artwork) {
        m_scheduler.post([alive = std::weak_ptr<bool>(m_alive), done, artwork = std::move(artwork)] {
            if (!alive.expired()) done(artwork);
        });
    };
    if (auto hit = m_artwork.find(key)) return later(std::move(hit));
    if (!track.artworkURL) return later(std::nullopt);
    const QUrl url(QString::fromStdString(*track.artworkURL));
    if (url.isLocalFile()) {
        decodeLater(
            key, [path = url.toLocalFile()] { return readLocalFile(path); }, std::move(done));
        return;
    }
    if (url.scheme() == QStringLiteral("https") || url.scheme() == QStringLiteral("http")) {
        m_http.get(*track.artworkURL, kDownloadTimeout,
                   [this, alive = std::weak_ptr<bool>(m_alive), key,
                    done = std::move(done)](const HttpResponse& response) {
                       if (alive.expired()) return;
                       if (!response.ok()) return finishArtwork(key, std::nullopt, done);
                       decodeLater(
                           key,
                           [body = response.body]() -> std::optional<std::vector<std::uint8_t>> {
                               return std::vector<std::uint8_t>(body.begin(), body.end());
                           },
                           done);
                   });
        return;
    }
    logArtwork(key, std::nullopt);
    later(std::nullopt);
}

void MprisMediaProvider::decodeLater(const std::string& key,
                                     std::function<std::optional<std::vector<std::uint8_t>>()> read,
                                     std::function<void(std::optional<Artwork>)> done) {
    // Reading and decoding can take a while on a slow disk or a large image: never on the main thread.
    m_queue->async([this, key, read = std::move(read), done = std::move(done)]() mutable {
        std::optional<Artwork> artwork;
        if (auto bytes = read()) {
            if (auto size = m_decoder.decode(*bytes)) {
                artwork = Artwork{std::make_shared<const std::vector<std::uint8_t>>(std::move(*bytes)),
                                  size->width, size->height};
            }
        }
        m_scheduler.post([this, alive = std::weak_ptr<bool>(m_alive), key, artwork = std::move(artwork),
                          done = std::move(done)] {
            if (!alive.expired()) finishArtwork(key, artwork, done);
        });
    });
}

void MprisMediaProvider::finishArtwork(const std::string& key, std::optional<Artwork> artwork,
                                       const std::function<void(std::optional<Artwork>)>& done) {
    if (artwork) m_artwork.remember(key, *artwork);
    logArtwork(key, artwork);
    done(std::move(artwork));
}

}  // namespace vantrelle
