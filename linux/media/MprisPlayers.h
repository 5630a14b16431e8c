#pragma once

#include <QString>
#include <cstdint>
#include <map>
#include <optional>

#include "media/MediaSource.h"

namespace vantrelle {

// The MPRIS players on the bus and which one stands for each source: Spotify's own name for `spotify`,
// and for `music` the other player that was active last (a playing one before a paused one).
// Plain bookkeeping, fed by the bus signals.
class MprisPlayers {
public:
    static inline const QString kPrefix = QStringLiteral("org.mpris.MediaPlayer2.");
    static inline const QString kSpotify = QStringLiteral("org.mpris.MediaPlayer2.spotify");

    struct Player {
        QString owner;  // the unique name that sends its signals
        QString identity;
        bool playing = false;
        std::uint64_t lastActive = 0;
    };

    [[nodiscard]] static bool isPlayerName(const QString& name) { return name.startsWith(kPrefix); }
    [[nodiscard]] static MediaSource sourceOf(const QString& name) {
        return name == kSpotify ? MediaSource::spotify : MediaSource::music;
    }

    // A player appeared or changed owner; appearing counts as activity.
    void appeared(const QString& name, const QString& owner);
    void vanished(const QString& name);
    void setPlaying(const QString& name, bool playing);
    void setIdentity(const QString& name, const QString& identity);

    [[nodiscard]] std::optional<QString> nameForOwner(const QString& owner) const;
    [[nodiscard]] std::optional<QString> chosen(MediaSource source) const;
    [[nodiscard]] const Player* find(const QString& name) const;
    [[nodiscard]] bool has(const QString& name) const { return m_players.count(name) > 0; }

private:
    std::map<QString, Player> m_players;
    std::uint64_t m_activity = 0;
};

}  // namespace vantrelle
