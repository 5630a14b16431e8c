#pragma once

#include <optional>
#include <string>

#include "media/MediaSource.h"

namespace vantrelle {

// One answer of a player: what it has loaded and where it is. Compared field by field, so an
// unchanged poll is not published again.
struct NowPlayingTrack {
    std::string title;
    std::string artist;
    std::string album;
    bool isPlaying = false;
    double duration = 0;  // seconds
    double position = 0;  // seconds
    MediaSource source = MediaSource::music;
    // Identity of the artwork: a new key means new artwork, and a new track for the paused-notch rule.
    std::string artworkKey;
    std::optional<std::string> artworkURL;

    bool operator==(const NowPlayingTrack&) const = default;
};

}  // namespace vantrelle
