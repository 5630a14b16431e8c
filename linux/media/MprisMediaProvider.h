#pragma once

#include <QDBusConnection>
#include <QDBusMessage>
#include <QObject>
#include <QVariantMap>
#include <map>
#include <memory>

#include "media/ArtworkCache.h"
#include "media/MediaProvider.h"
#include "media/MprisPlayers.h"
#include "platform/HttpClient.h"
#include "platform/ImageDecoder.h"
#include "platform/Scheduler.h"
#include "platform/SerialQueue.h"

namespace vantrelle {

// The players on Linux, over MPRIS on the session bus. Which players run comes from the bus's own
// name signals, and their changes from PropertiesChanged, so nothing polls the bus for news; a state
// query reads the player's properties once (Position is never signalled). Only names that have an
// owner are ever called, so no call can start a player through bus activation.
// Artwork from mpris:artUrl: local files are read and decoded on the "media" queue, web images come
// through the HTTP client; eight are kept in memory. Main thread only.
class MprisMediaProvider final : public QObject, public MediaProvider {
    Q_OBJECT

public:
    struct Dependencies {
        QDBusConnection bus;
        QueueFactory& queues;
        Scheduler& scheduler;
        HttpClient& http;
        const ImageDecoder& decoder;
    };
    static constexpr double kDownloadTimeout = 15.0;
    static constexpr qint64 kMaxArtworkFileBytes = 32 * 1024 * 1024;

    explicit MprisMediaProvider(Dependencies dependencies);
    ~MprisMediaProvider() override;

    [[nodiscard]] bool isRunning(MediaSource source) const override;
    void fetchState(MediaSource source, std::function<void(std::optional<NowPlayingTrack>)> done) override;
    void fetchArtwork(const NowPlayingTrack& track,
                      std::function<void(std::optional<Artwork>)> done) override;
    void command(MediaSource source, const std::string& verb, std::function<void()> done) override;
    [[nodiscard]] std::string playerName(MediaSource source) const override;

    // The bus name that stands for the source now, if any.
    [[nodiscard]] std::optional<QString> busName(MediaSource source) const {
        return m_players.chosen(source);
    }
    // Method calls sent to players so far.
    [[nodiscard]] std::size_t playerCalls() const { return m_playerCalls; }

private Q_SLOTS:
    void onNameOwnerChanged(const QString& name, const QString& oldOwner, const QString& newOwner);
    void onPropertiesChanged(const QString& interface, const QVariantMap& changed,
                             const QStringList& invalidated, const QDBusMessage& message);

private:
    void listPlayers();
    void learnPlayer(const QString& name, const QString& owner);
    void call(const QString& name, const QString& interface, const QString& method,
              const QVariantList& arguments, std::function<void(const QDBusMessage&)> done);
    void finishArtwork(const std::string& key, std::optional<Artwork> artwork,
                       const std::function<void(std::optional<Artwork>)>& done);
    void decodeLater(const std::string& key, std::function<std::optional<std::vector<std::uint8_t>>()> read,
                     std::function<void(std::optional<Artwork>)> done);

    QDBusConnection m_bus;
    Scheduler& m_scheduler;
    HttpClient& m_http;
    const ImageDecoder& m_decoder;
    MprisPlayers m_players;
    ArtworkCache m_artwork;
    std::map<QString, QString> m_trackIds;  // per player, from its last state, for SetPosition
    std::map<QString, double> m_positions;  // per player, for a relative seek where no track id is known
    std::size_t m_playerCalls = 0;
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
    std::unique_ptr<SerialQueue> m_queue;  // last: its worker finishes first
};

}  // namespace vantrelle
