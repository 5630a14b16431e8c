#pragma once

#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "activity/LiveActivityCenter.h"
#include "media/Artwork.h"
#include "media/MediaProvider.h"
#include "platform/Scheduler.h"
#include "support/SharedInstance.h"
#include "support/Signal.h"

namespace vantrelle {

// What is playing, for the music panel, its tile and the closed notch. Decides when to ask the players,
// which of the two counts, how the position moves between answers, when artwork is fetched and when the
// notch shows or drops the media activity. Main thread only.
class MediaController {
public:
    static constexpr double kActivePollInterval = 1.0;
    static constexpr double kBackgroundPollInterval = 5.0;
    static constexpr double kTickInterval = 0.5;
    static constexpr double kPausedActivityLifetime = 60.0;
    static constexpr double kRefreshAfterCommand = 0.15;

    struct Dependencies {
        MediaProvider& provider;
        Scheduler& scheduler;
        LiveActivityCenter& activities;
        bool demo = false;
    };

    explicit MediaController(Dependencies dependencies);
    MediaController(const MediaController&) = delete;
    MediaController& operator=(const MediaController&) = delete;
    ~MediaController();

    [[nodiscard]] static MediaController& shared() { return SharedInstance<MediaController>::get(); }

    // Once only: demo data, or the player signals, the poll timer and a first poll.
    void start();
    // One poll. A poll that comes while another runs is dropped, not queued.
    void refresh();

    // Raised while a panel that shows media is on screen: faster polls and a moving position.
    void setActive(bool active);
    [[nodiscard]] bool isActive() const { return m_active; }

    void playPause() { send("playpause"); }
    void nextTrack() { send("next track"); }
    void previousTrack() { send("previous track"); }
    // Seconds, clamped into the track; the position moves at once, before the player confirms.
    void seek(double seconds);

    [[nodiscard]] const std::optional<NowPlayingTrack>& track() const { return m_track; }
    [[nodiscard]] const std::optional<Artwork>& artwork() const { return m_artwork; }
    [[nodiscard]] bool isPolling() const { return m_polling; }
    [[nodiscard]] std::optional<MediaSource> lastPlayingSource() const { return m_lastPlayingSource; }
    [[nodiscard]] std::string playerName() const;
    [[nodiscard]] MediaProvider& provider() const { return m_provider; }

    // The fixed track of demo mode.
    [[nodiscard]] static NowPlayingTrack demoTrack();
    // The command for a seek, with a decimal point whatever the locale.
    [[nodiscard]] static std::string seekVerb(double seconds);

    Signal<> trackChanged;
    Signal<> artworkChanged;

private:
    void schedulePoll();
    void updateTick();
    void tick();
    void pollNext(std::vector<MediaSource> remaining, std::vector<NowPlayingTrack> found,
                  std::optional<MediaSource> lastPlaying);
    void apply(std::optional<NowPlayingTrack> next);
    void updateLiveActivity(const std::optional<NowPlayingTrack>& next);
    void updateArtwork(const std::optional<NowPlayingTrack>& next);
    void send(const std::string& verb);
    void setActivity(const NowPlayingTrack& track);
    void removeActivity();

    MediaProvider& m_provider;
    Scheduler& m_scheduler;
    LiveActivityCenter& m_activities;
    const bool m_demo;

    std::optional<NowPlayingTrack> m_track;
    std::optional<Artwork> m_artwork;
    bool m_started = false;
    bool m_active = false;
    bool m_polling = false;
    std::optional<MediaSource> m_lastPlayingSource;
    std::optional<std::string> m_loadedArtworkKey;
    std::int64_t m_artworkAttempts = 0;
    // Bumped to drop the answer of an artwork fetch that no longer counts; set while one runs.
    std::uint64_t m_artworkGeneration = 0;
    bool m_artworkFetching = false;
    std::optional<std::string> m_pausedActivityExpiredForKey;
    std::optional<WorkItem> m_pauseClearWork;
    std::optional<RepeatingTimer> m_pollTimer;
    std::optional<RepeatingTimer> m_tickTimer;
    WorkItem m_commandRefresh;
    std::vector<Connection> m_observers;
    // Provider answers that arrive after the controller is gone find this expired.
    std::shared_ptr<bool> m_alive = std::make_shared<bool>(true);
};

}  // namespace vantrelle
