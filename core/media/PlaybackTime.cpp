#include "media/PlaybackTime.h"

#include <cmath>
#include <cstdio>

namespace vantrelle {

std::string formatPlaybackTime(double seconds) {
    // Whole seconds shown, rounded down, as a player's own clock does.
    const long long total = std::isfinite(seconds) && seconds > 0 ? static_cast<long long>(seconds) : 0;
    char buffer[32];
    if (total >= 3600) {
        std::snprintf(buffer, sizeof buffer, "%lld:%02lld:%02lld", total / 3600, total / 60 % 60, total % 60);
    } else {
        std::snprintf(buffer, sizeof buffer, "%lld:%02lld", total / 60, total % 60);
    }
    return buffer;
}

}  // namespace vantrelle
