// Any reply of a scripted player: it parses to a track or to nothing, never a crash.
#include <cstdint>
#include <cstdlib>
#include <string_view>

#include "media/StateReply.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    using namespace vantrelle;
    const std::string_view reply(reinterpret_cast<const char*>(data), size);
    for (const auto source : kMediaSources) {
        const auto track = parseStateReply(source, reply);
        if (!track) continue;
        // Whatever the fields hold, the answer names the player that gave it, in its key too.
        if (track->source != source) std::abort();
        if (!track->artworkKey.starts_with(std::string(rawName(source)) + ":")) std::abort();
        if (source == MediaSource::music && track->artworkURL) std::abort();
    }
    return 0;
}
