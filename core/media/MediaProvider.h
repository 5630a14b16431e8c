#pragma once

#include <functional>
#include <optional>
#include <string>

#include "media/Artwork.h"
#include "media/MediaSource.h"
#include "media/NowPlayingTrack.h"
#include "support/Signal.h"

namespace vantrelle {

// The transport between the media controller and the players. Completions run on the main thread,
// exactly once, unless the provider is destroyed first. No operation may start a player.
class MediaProvider {
public:
    virtual ~MediaProvider() = default;

    // Whether the player runs right now. Cheap and answered on the main thread, without asking the player.
    [[nodiscard]] virtual bool isRunning(MediaSource source) const = 0;
    // What the player has loaded; nothing when it has no track, quit or failed.
    virtual void fetchState(MediaSource source, std::function<void(std::optional<NowPlayingTrack>)> done) = 0;
    // The artwork of a track; nothing when there is none or it can't be had.
    virtual void fetchArtwork(const NowPlayingTrack& track,
                              std::function<void(std::optional<Artwork>)> done) = 0;
    // Sends one of the command verbs ("playpause", "next track", "previous track",
    // "set player position to <seconds>"); the reply is discarded.
    virtual void command(MediaSource source, const std::string& verb, std::function<void()> done) = 0;
    // The name the user knows the player by, for the music panel.
    [[nodiscard]] virtual std::string playerName(MediaSource source) const {
        return std::string(rawName(source));
    }

    // A player says its state may have changed.
    Signal<> stateMayHaveChanged;
    // A player quit.
    Signal<MediaSource> playerQuit;
};

}  // namespace vantrelle
