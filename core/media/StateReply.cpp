#include "media/StateReply.h"

#include <algorithm>
#include <cctype>
#include <charconv>
#include <string>
#include <vector>

#include "media/MediaScripts.h"
#include "support/DebugLog.h"

namespace vantrelle {

namespace {

std::vector<std::string_view> splitFields(std::string_view reply) {
    std::vector<std::string_view> fields;
    const auto separator = media_scripts::kFieldSeparator;
    std::size_t start = 0;
    for (;;) {
        const std::size_t at = reply.find(separator, start);
        if (at == std::string_view::npos) {
            fields.push_back(reply.substr(start));
            return fields;
        }
        fields.push_back(reply.substr(start, at - start));
        start = at + separator.size();
    }
}

std::string lower(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(),
                   [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
    return result;
}

// A player may hand back the raw enumeration code in place of the word.
std::optional<bool> playingFromState(std::string_view field) {
    const std::string word = lower(field);
    if (word == "playing" || field.find("kPSP") != std::string_view::npos) return true;
    if (word == "paused" || field.find("kPSp") != std::string_view::npos) return false;
    return std::nullopt;
}

}  // namespace

double parseReplyNumber(std::string_view field) {
    const auto first = field.find_first_not_of(' ');
    if (first == std::string_view::npos) return 0;
    const auto last = field.find_last_not_of(' ');
    std::string text(field.substr(first, last - first + 1));
    std::replace(text.begin(), text.end(), ',', '.');
    double value = 0;
    const auto* end = text.data() + text.size();
    auto [ptr, error] = std::from_chars(text.data(), end, value);
    if (error != std::errc() || ptr != end) return 0;
    return value;
}

std::optional<NowPlayingTrack> parseStateReply(MediaSource source, std::string_view reply) {
    if (reply.empty() || reply == "stopped") return std::nullopt;
    const auto fields = splitFields(reply);
    if (fields.size() < 7) {
        DebugLog::write([&] {
            return "media: unexpected state reply from " + std::string(rawName(source)) + ": " +
                   std::string(reply.substr(0, 120));
        });
        return std::nullopt;
    }
    NowPlayingTrack track;
    track.title = fields[0];
    track.artist = fields[1];
    track.album = fields[2];
    const auto playing = playingFromState(fields[3]);
    if (!playing) {
        DebugLog::write([&] {
            return "media: unrecognised player state '" + std::string(fields[3]) + "' from " +
                   std::string(rawName(source));
        });
    }
    track.isPlaying = playing.value_or(false);
    track.position = parseReplyNumber(fields[4]);
    track.duration = parseReplyNumber(fields[5]);
    track.source = source;
    if (source == MediaSource::music) {
        // The database ID alone doesn't identify a streamed track; the title makes the key unique.
        track.artworkKey = "Music:" + std::string(fields[6]) + ":" + track.title;
    } else {
        track.artworkKey = "Spotify:" + std::string(fields[6]);
        if (fields.size() >= 8 && fields[7].find("://") != std::string_view::npos)
            track.artworkURL = fields[7];
    }
    return track;
}

}  // namespace vantrelle
