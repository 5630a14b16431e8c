#include "media/MediaScripts.h"

#include <cstdio>

namespace vantrelle::media_scripts {

std::string stateScript(MediaSource source) {
    const std::string name(rawName(source));
    std::string script = "tell application \"" + name + "\"\n";
    script += "    set theState to player state\n";
    script += "    if theState is stopped then return \"stopped\"\n";
    script += "    set stateText to \"paused\"\n";
    script += "    if theState is playing then set stateText to \"playing\"\n";
    script += "    set t to current track\n";
    script +=
        R"(    return (name of t as text) & "<|>" & (artist of t as text) & "<|>" & (album of t as text) & "<|>" & stateText & "<|>" & (player position as text) & "<|>" & )";
    if (source == MediaSource::music) {
        script += R"((duration of t as text) & "<|>" & (database ID of t as text))";
    } else {
        // Spotify counts milliseconds; the division keeps both replies in seconds.
        script +=
            R"((((duration of t) / 1000) as text) & "<|>" & (id of t as text) & "<|>" & (artwork url of t as text))";
    }
    script += "\nend tell";
    return script;
}

std::string commandScript(MediaSource source, std::string_view verb) {
    return "tell application \"" + std::string(rawName(source)) + "\" to " + std::string(verb);
}

std::string musicArtworkScript(const std::filesystem::path& file) {
    // Artwork bytes can't travel in a text reply, so the script leaves them in a file.
    return "tell application \"Music\"\n"
           "    if player state is stopped then return \"\"\n"
           "    if (count of artworks of current track) is 0 then return \"\"\n"
           "    set artData to raw data of artwork 1 of current track\n"
           "end tell\n"
           "set p to \"" +
           file.string() +
           "\"\n"
           "set f to open for access (POSIX file p) with write permission\n"
           "set eof f to 0\n"
           "write artData to f\n"
           "close access f\n"
           "return p";
}

std::vector<std::string> lineArguments(std::string_view script) {
    const std::string wrapped = "on run\n" + std::string(script) + "\nend run";
    std::vector<std::string> arguments;
    std::size_t start = 0;
    while (start <= wrapped.size()) {
        std::size_t end = wrapped.find('\n', start);
        if (end == std::string::npos) end = wrapped.size();
        if (end > start) {
            arguments.emplace_back("-e");
            arguments.push_back(wrapped.substr(start, end - start));
        }
        start = end + 1;
    }
    return arguments;
}

std::string stableHash(std::string_view text) {
    std::uint64_t hash = 5381;
    for (unsigned char byte : text) hash = hash * 33 + byte;
    char buffer[17];
    std::snprintf(buffer, sizeof buffer, "%llx", static_cast<unsigned long long>(hash));
    return buffer;
}

}  // namespace vantrelle::media_scripts
