#include "media/MprisPlayers.h"

namespace vantrelle {

void MprisPlayers::appeared(const QString& name, const QString& owner) {
    auto& player = m_players[name];
    player.owner = owner;
    player.lastActive = ++m_activity;
}

void MprisPlayers::vanished(const QString& name) {
    m_players.erase(name);
}

void MprisPlayers::setPlaying(const QString& name, bool playing) {
    auto it = m_players.find(name);
    if (it == m_players.end()) return;
    // Starting to play is what makes a player the most recently active one.
    if (playing && !it->second.playing) it->second.lastActive = ++m_activity;
    it->second.playing = playing;
}

void MprisPlayers::setIdentity(const QString& name, const QString& identity) {
    if (auto it = m_players.find(name); it != m_players.end()) it->second.identity = identity;
}

std::optional<QString> MprisPlayers::nameForOwner(const QString& owner) const {
    for (const auto& [name, player] : m_players) {
        if (player.owner == owner) return name;
    }
    return std::nullopt;
}

const MprisPlayers::Player* MprisPlayers::find(const QString& name) const {
    auto it = m_players.find(name);
    return it == m_players.end() ? nullptr : &it->second;
}

std::optional<QString> MprisPlayers::chosen(MediaSource source) const {
    if (source == MediaSource::spotify) {
        return has(kSpotify) ? std::optional(kSpotify) : std::nullopt;
    }
    std::optional<QString> best;
    const Player* bestPlayer = nullptr;
    for (const auto& [name, player] : m_players) {
        if (name == kSpotify) continue;
        const bool better = !bestPlayer || (player.playing != bestPlayer->playing
                                                ? player.playing
                                                : player.lastActive > bestPlayer->lastActive);
        if (better) {
            best = name;
            bestPlayer = &player;
        }
    }
    return best;
}

}  // namespace vantrelle
