#pragma once

#include <array>
#include <optional>
#include <string_view>

namespace vantrelle {

// The two players the program follows. On Linux `spotify` is the Spotify client and `music` stands for
// whichever other player was active last. The raw name is what logs and scripts use.
enum class MediaSource { music, spotify };

inline constexpr std::array<MediaSource, 2> kMediaSources{MediaSource::music, MediaSource::spotify};

[[nodiscard]] constexpr std::string_view rawName(MediaSource source) {
    return source == MediaSource::music ? "Music" : "Spotify";
}

[[nodiscard]] constexpr std::optional<MediaSource> mediaSourceFromRaw(std::string_view raw) {
    if (raw == "Music") return MediaSource::music;
    if (raw == "Spotify") return MediaSource::spotify;
    return std::nullopt;
}

}  // namespace vantrelle
