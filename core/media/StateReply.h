#pragma once

#include <optional>
#include <string_view>

#include "media/NowPlayingTrack.h"

namespace vantrelle {

// Turns one state reply of a scripted player into a track. "stopped" or an empty reply is no track;
// a reply of fewer than seven fields is logged and dropped; an unknown state word is logged and
// counts as paused. Positions may use a decimal comma, as the player's locale writes them.
[[nodiscard]] std::optional<NowPlayingTrack> parseStateReply(MediaSource source, std::string_view reply);

// Trims blanks (not newlines), reads a comma as a point; anything unreadable is 0.
[[nodiscard]] double parseReplyNumber(std::string_view field);

}  // namespace vantrelle
