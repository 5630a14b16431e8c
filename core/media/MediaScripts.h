#pragma once

#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "media/MediaSource.h"

namespace vantrelle {

// The AppleScript texts the scripted provider sends to the players, and how they are handed to the
// script tools. These texts are a wire format: a compiled copy is found again by the hash of its text.
namespace media_scripts {

// "<|>": no player puts it in a field on its own, and no escaping exists.
inline constexpr std::string_view kFieldSeparator = "<|>";

// Queries the player's state; the reply is "stopped" or the fields joined by the separator.
[[nodiscard]] std::string stateScript(MediaSource source);
// "tell application \"<player>\" to <verb>".
[[nodiscard]] std::string commandScript(MediaSource source, std::string_view verb);
// Writes the current track's artwork to `file` and returns its path, or "" when there is none.
[[nodiscard]] std::string musicArtworkScript(const std::filesystem::path& file);

// The script wrapped in a run handler, as "-e" arguments, one per non-empty line.
[[nodiscard]] std::vector<std::string> lineArguments(std::string_view script);
// djb2 over the UTF-8 bytes in wrapping 64-bit arithmetic, in lower-case hex: stable between launches.
[[nodiscard]] std::string stableHash(std::string_view text);
// Short verbs are compiled once; longer ones carry a number (a seek) and would fill the cache.
[[nodiscard]] constexpr bool cachesCommand(std::string_view verb) {
    return verb.size() < 24;
}

}  // namespace media_scripts
}  // namespace vantrelle
