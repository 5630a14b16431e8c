#include "media/MediaController.h"

#include <algorithm>
#include <cstdio>

#include "support/DebugLog.h"

namespace vantrelle {

namespace {

std::string describe(const std::optional<NowPlayingTrack>& track) {
    if (!track) return "nil";
    return std::string(rawName(track->source)) + " '" + track->title +
           "' playing=" + (track->isPlaying ? "true" : "false") + " key=" + track->artworkKey;
}

std::optional<NowPlayingTrack> choose(const std::vector<NowPlayingTrack>& tracks,
                                      std::optional<MediaSource> lastPlaying) {
    for (const auto& track : tracks) {
        if (track.isPlaying) return track;
    }
    // A paused player keeps priority over another paused one if it was the last to play.
    for (const auto& track : tracks) {
        if (lastPlaying && track.source == *lastPlaying) return track;
    }
    if (!tracks.empty()) return tracks.front();
    return std::nullopt;
}

}  // namespace

MediaController::MediaController(Dependencies dependencies)
    : m_provider(dependencies.provider),
      m_scheduler(dependencies.scheduler),
      m_activities(dependencies.activities),
      m_demo(dependencies.demo) {}

MediaController::~MediaController() = default;

NowPlayingTrack MediaController::demoTrack() {
    return NowPlayingTrack{"Glass Onion", "Slowdive",         "Everything Is Alive", true,        273.0,
                           102.0,         MediaSource::music, "demo:glass-onion",    std::nullopt};
}

std::string MediaController::seekVerb(double seconds) {
    char buffer[64];
    std::snprintf(buffer, sizeof buffer, "%.1f", seconds);
    // The C library follows the locale the GUI toolkit set, which may use a decimal comma.
    std::string text(buffer);
    std::replace(text.begin(), text.end(), ',', '.');
    return "set player position to " + text;
}

std::string MediaController::playerName() const {
    if (!m_track) return {};
    if (m_demo) return std::string(rawName(m_track->source));
    return m_provider.playerName(m_track->source);
}

void MediaController::start() {
    if (m_started) return;
    m_started = true;
    if (m_demo) {
        apply(demoTrack());
        return;
    }
    // Signals hop through the main queue, as a notification would, so a poll never runs inside one.
    auto later = [this, alive = std::weak_ptr<bool>(m_alive)] {
        m_scheduler.post([this, alive] {
            if (!alive.expired()) refresh();
        });
    };
    m_observers.push_back(m_provider.stateMayHaveChanged.connect(later));
    m_observers.push_back(m_provider.playerQuit.connect([later](const MediaSource&) { later(); }));
    schedulePoll();
    refresh();
}

void MediaController::setActive(bool active) {
    if (active == m_active) return;
    m_active = active;
    schedulePoll();
    updateTick();
    if (active) refresh();
}

void MediaController::schedulePoll() {
    if (!m_started || m_demo) return;
    m_pollTimer.reset();
    m_pollTimer =
        m_scheduler.repeat(m_active ? kActivePollInterval : kBackgroundPollInterval, [this] { refresh(); });
}

void MediaController::updateTick() {
    if (m_active && m_track && m_track->isPlaying) {
        if (!m_tickTimer) m_tickTimer = m_scheduler.repeat(kTickInterval, [this] { tick(); });
        return;
    }
    m_tickTimer.reset();
}

void MediaController::tick() {
    if (!m_track || !m_track->isPlaying) return;
    // Between polls the bar moves on its own; each poll corrects it.
    m_track->position = std::min(m_track->position + kTickInterval, m_track->duration);
    trackChanged.emit();
}

void MediaController::refresh() {
    if (m_demo || m_polling) return;
    // Only players that already run are asked, so a poll can never start one.
    std::vector<MediaSource> running;
    for (auto source : kMediaSources) {
        if (m_provider.isRunning(source)) running.push_back(source);
    }
    if (running.empty()) {
        apply(std::nullopt);
        return;
    }
    m_polling = true;
    pollNext(std::move(running), {}, m_lastPlayingSource);
}

void MediaController::pollNext(std::vector<MediaSource> remaining, std::vector<NowPlayingTrack> found,
                               std::optional<MediaSource> lastPlaying) {
    if (remaining.empty()) {
        m_polling = false;
        apply(choose(found, lastPlaying));
        return;
    }
    const MediaSource source = remaining.front();
    remaining.erase(remaining.begin());
    // One player after the other, never at once.
    m_provider.fetchState(
        source, [this, alive = std::weak_ptr<bool>(m_alive), remaining = std::move(remaining),
                 found = std::move(found), lastPlaying](std::optional<NowPlayingTrack> track) mutable {
            if (alive.expired()) return;
            if (track) found.push_back(std::move(*track));
            pollNext(std::move(remaining), std::move(found), lastPlaying);
        });
}

void MediaController::apply(std::optional<NowPlayingTrack> next) {
    if (next && next->isPlaying) m_lastPlayingSource = next->source;
    const bool keyChanged = next.has_value() != m_track.has_value() ||
                            (next && m_track && next->artworkKey != m_track->artworkKey);
    const bool playChanged = next && m_track && next->isPlaying != m_track->isPlaying;
    if (keyChanged || playChanged) DebugLog::write([&] { return "media: apply " + describe(next); });
    if (next != m_track) {
        m_track = next;
        trackChanged.emit();
    }
    updateLiveActivity(next);
    updateArtwork(next);
    updateTick();
}

void MediaController::setActivity(const NowPlayingTrack& track) {
    m_activities.set(LiveActivity{LiveActivity::Media{track.title, track.artist, track.isPlaying}},
                     LiveActivityCenter::Source::media);
}

void MediaController::removeActivity() {
    m_activities.set(std::nullopt, LiveActivityCenter::Source::media);
}

void MediaController::updateLiveActivity(const std::optional<NowPlayingTrack>& next) {
    if (!next || next->isPlaying) {
        m_pauseClearWork.reset();
        m_pausedActivityExpiredForKey.reset();
        if (next) {
            setActivity(*next);
        } else {
            removeActivity();
        }
        return;
    }
    // A track paused for long stays out of the notch, although each poll still reports it.
    if (m_pausedActivityExpiredForKey == next->artworkKey) return;
    setActivity(*next);
    if (m_pauseClearWork) return;  // the time counts from the pause, not from the latest poll
    m_pauseClearWork = m_scheduler.schedule(kPausedActivityLifetime, [this, key = next->artworkKey] {
        m_pauseClearWork.reset();
        m_pausedActivityExpiredForKey = key;
        removeActivity();
    });
}

void MediaController::updateArtwork(const std::optional<NowPlayingTrack>& next) {
    if (m_demo) {
        if (!m_artwork) {
            // No bytes: the views draw the demo cover themselves.
            m_artwork = Artwork{nullptr, 600, 600};
            artworkChanged.emit();
        }
        return;
    }
    std::optional<std::string> key = next ? std::optional(next->artworkKey) : std::nullopt;
    if (key != m_loadedArtworkKey) {
        m_loadedArtworkKey = key;
        m_artworkAttempts = 0;
        ++m_artworkGeneration;  // whatever is still fetching no longer counts
        m_artworkFetching = false;
        if (m_artwork) {
            m_artwork.reset();
            artworkChanged.emit();
        }
    }
    if (!next || m_artwork || m_artworkFetching) return;
    // The first four polls without artwork fetch it; afterwards only every tenth does.
    if (m_artworkAttempts >= 4 && m_artworkAttempts % 10 != 0) {
        ++m_artworkAttempts;
        return;
    }
    ++m_artworkAttempts;
    DebugLog::write([&] {
        return "media: artwork fetch attempt " + std::to_string(m_artworkAttempts) + " for " +
               next->artworkKey;
    });
    m_artworkFetching = true;
    const std::uint64_t generation = m_artworkGeneration;
    m_provider.fetchArtwork(*next, [this, alive = std::weak_ptr<bool>(m_alive), generation,
                                    key = next->artworkKey](std::optional<Artwork> artwork) {
        if (alive.expired() || generation != m_artworkGeneration) return;
        m_artworkFetching = false;
        if (m_loadedArtworkKey != key || !artwork) return;  // a miss waits for the next poll
        m_artwork = std::move(artwork);
        artworkChanged.emit();
    });
}

void MediaController::send(const std::string& verb) {
    if (m_demo) return;
    std::optional<MediaSource> target;
    if (m_track) {
        target = m_track->source;
    } else if (m_lastPlayingSource) {
        target = m_lastPlayingSource;
    } else {
        for (auto source : kMediaSources) {
            if (m_provider.isRunning(source)) {
                target = source;
                break;
            }
        }
    }
    // A command never starts a player.
    if (!target || !m_provider.isRunning(*target)) return;
    DebugLog::write([&] { return "media: command '" + verb + "' -> " + std::string(rawName(*target)); });
    m_provider.command(*target, verb, [this, alive = std::weak_ptr<bool>(m_alive)] {
        if (alive.expired()) return;
        // Give the player a moment to take the command before asking it again.
        m_commandRefresh = m_scheduler.schedule(kRefreshAfterCommand, [this] { refresh(); });
    });
}

void MediaController::seek(double seconds) {
    // A player reports the length a moment after it opens a file; until then there is nothing to
    // clamp to, and sending 0 would restart the track.
    if (!m_track || m_track->duration <= 0) return;
    const double clamped = std::max(std::min(seconds, m_track->duration), 0.0);
    if (m_track->position != clamped) {
        m_track->position = clamped;
        trackChanged.emit();
    }
    send(seekVerb(clamped));
}

}  // namespace vantrelle
